#pragma once

#include <QDirIterator>
#include <QMap>

#include "base/roots.h"
#include "publish/ftp/connect_task.h"
#include "publish/ftp/ftp_publication.h"
#include "tests/publish/commands/session.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// All files below a folder with their bytes.
inline QMap<QString, QByteArray> files_below(const QString& folder) {
    QMap<QString, QByteArray> files;
    for (QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); all.hasNext();) {
        const QString path = all.next();
        files.insert(QDir(folder).relativeFilePath(path), read_file(path).value_or("(unreadable)"));
    }
    return files;
}

/// How a publication ended.
struct Published {
    TaskEnd end;                        ///< of the last task
    std::shared_ptr<SendTask> sending;  ///< null when there was nothing to send or remove
    QStringList fetched;
    qsizetype removed = 0;

    /// The files that went up.
    [[nodiscard]] qsizetype sent() const {
        return sending ? sending->progress().files_done - sending->refused().size() : 0;
    }
    [[nodiscard]] QString told() const {
        return u"%1 sent, %2 removed, fetched: "_s.arg(sent()).arg(removed) + fetched.join(u' ');
    }
};

/// A Website "Shop" and its way to a server, task by task as the publishing dialog goes it.
class Publisher {
  public:
    void put(const QString& path, const QByteArray& bytes = "x") {
        home_.put(u"Pondera/Shop/"_s + path, bytes);
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
        return PublicationRecord::open(website(), destination_);
    }

    /// Publishes over a session of its own to a folder of the server, or sends but the file `only`.
    Published publish(const QString& host, const QString& folder, PublicationMode mode = PublicationMode::kPartial,
                      const QString& only = {}) {
        Session session(host, highest_index);
        session.control.inet.set_local_root(website());
        Published result;
        const auto done = [&](const std::shared_ptr<RemoteTask>& task) {
            result.end = session.run(task) ? session.end : result.end;
            return result.end.how == TaskEnd::How::kDone;
        };
        const auto there = std::make_shared<ConnectTask>(QStringList(folder));
        if (!done(there)) return result;
        const auto begun =
            FtpPublication::begin(roots, {.website = u"Shop"_s,
                                          .destination = destination_,
                                          .remote_folder = there->remote_folder(),
                                          .mode = mode,
                                          .present = there->present(),
                                          .listing = there->listed() ? std::optional(there->listing()) : std::nullopt,
                                          .only = only});
        FtpPublication& work = **begun;
        EXPECT_TRUE(work.survey().value_or(false));
        if (!done(work.verify_task()) || !done(work.list_task())) return result;
        const auto fetch = work.fetch_task();
        if (!done(fetch)) return result;
        if (fetch) result.fetched = fetch->fetched();
        EXPECT_TRUE(work.prepare().value_or(false));
        result.removed = work.removals();
        done(result.sending = work.send_task());
        EXPECT_TRUE(work.close());
        return result;
    }

  private:
    TestFolder home_;
    const Destination destination_ = Destination::on_server(u"here"_s, u"anonymous"_s, u"/Shop"_s);

  public:
    Roots roots{home_.path()};
    int highest_index = 5000;
    QMap<QString, QByteArray> files;  ///< what the server should hold
};

}  // namespace pondera
