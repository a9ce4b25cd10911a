#pragma once

#include <QDirIterator>
#include <QMap>

#include "base/roots.h"
#include "publish/commands/command_executor.h"
#include "publish/sending/list_task.h"
#include "publish/sending/send_task.h"
#include "tests/publish/transfer/control.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// How a publication ended; without a sending when it did not come to that.
struct Published {
    TaskEnd end;
    PublicationPlan plan;
    std::shared_ptr<SendTask> sending;
};

/// All files below a folder with their bytes.
inline QMap<QString, QByteArray> files_below(const QString& folder) {
    QMap<QString, QByteArray> files;
    for (QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); all.hasNext();) {
        const QString path = all.next();
        files.insert(QDir(folder).relativeFilePath(path), read_file(path).value_or("(unreadable)"));
    }
    return files;
}

/// A Website "Shop" and the way of its publications to a server: survey, listing, plan, staging, sending.
class Publisher {
  public:
    void put(const QString& path, const QByteArray& bytes = "x") {
        home_.put(u"base/Pondera/Shop/"_s + path, bytes);
        files[path] = bytes;
    }
    void remove(const QString& path) {
        EXPECT_TRUE(remove_file(website(path)));
        files.remove(path);
    }
    [[nodiscard]] QString website(const QString& path = {}) const {
        return QDir(roots.website(u"Shop"_s)).filePath(path);
    }
    [[nodiscard]] FileResult<PublicationRecord> record() const {
        return PublicationRecord::open(website(), Destination::on_server(u"here"_s, u"anonymous"_s, u"/Shop"_s));
    }

    /// Publishes over a session of its own.
    Published publish(const QString& host, const QString& remote_folder,
                      PublicationMode mode = PublicationMode::kPartial) {
        Control control({.connect = std::chrono::seconds(5),
                         .silence = std::chrono::seconds(5),
                         .retries = {std::chrono::milliseconds(1)}});
        control.inet.set_host(host);
        if (host.startsWith(u"sftp") && control.run(u"DIR"_s) == kCertificateNotTrusted)
            control.inet.trust_certificate(control.inet.Protection().fingerprint);
        CommandExecutor executor(control.inet, highest_index);
        const auto listing = std::make_shared<ListTask>(
            remote_folder, QStringList{u""_s, u"media/img"_s, u"media/video"_s, u"media/audio"_s});
        Published result{.end = run(executor, listing), .plan = {}, .sending = nullptr};
        if (result.end.how != TaskEnd::How::kDone) return result;
        auto known = record();
        const auto survey = survey_website(roots, u"Shop"_s);
        EXPECT_TRUE(known && survey);
        result.plan = plan_publication(*survey, mode, *known, listing->found(), true);
        EXPECT_TRUE(stage(roots, u"Shop"_s, mode, result.plan).value_or(false));
        const QString staged = staging_folder(roots, u"Shop"_s, mode);
        result.sending = std::make_shared<SendTask>(
            SendTask::Job{staged, remote_folder, result.plan, &*known, listing->found().folders});
        result.end = run(executor, result.sending);
        EXPECT_TRUE(known->close());
        clear_staging(roots, u"Shop"_s, mode);
        return result;
    }

  private:
    static TaskEnd run(CommandExecutor& executor, std::shared_ptr<RemoteTask> task) {
        TaskEnd end{.how = TaskEnd::How::kBroken, .code = kTimedOut, .text = {}};
        const QObject watch;
        QObject::connect(&executor, &CommandExecutor::Ended, &watch, [&end](const TaskEnd& how) { end = how; });
        executor.run(std::move(task));
        Control::wait_until([&executor] { return !executor.busy(); });
        return end;
    }

    TestFolder home_;

  public:
    Roots roots{home_.path(u"base"_s)};
    int highest_index = 5000;
    QMap<QString, QByteArray> files;  ///< what the server should hold
};

}  // namespace pondera
