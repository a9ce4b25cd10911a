#pragma once

#include <memory>
#include <optional>

#include "publish/ftp/fetch_task.h"
#include "publish/ftp/verify_task.h"
#include "publish/sending/destination.h"
#include "publish/sending/list_task.h"
#include "publish/sending/send_task.h"

namespace pondera {

class Roots;

/// One publication of a Website to a server, station by station: survey, verify, list, fetch, prepare, send, close. Who
/// drives it runs the tasks in this order; a task that is null has nothing to do. The record is written with every file
/// that the server confirms, so a publication may end anywhere.
class FtpPublication {
  public:
    struct Order {
        QString website;
        Destination destination;
        QString remote_folder;  ///< the Website's own on the server, absolute
        PublicationMode mode = PublicationMode::kPartial;
        bool remove_deleted = true;
        bool present = true;                     ///< the remote folder is there
        std::optional<RemoteListing> listing{};  ///< what it holds, where that was listed a moment ago
        QStringList verified{QStringLiteral("img"),
                             QStringLiteral("audio")};  ///< the folders in "media" that are verified and fetched from
        QString only{};                                 ///< a single file to send, by its path; empty for all
    };

    /// Fails when the publishing record is there and cannot be read.
    [[nodiscard]] static FileResult<std::unique_ptr<FtpPublication>> begin(const Roots& roots, Order order);

    /// Reads what the Website would publish now; false when cancelled.
    [[nodiscard]] FileResult<bool> survey(const Steps& steps = {});

    /// Lists the media folders that are fetched from.
    [[nodiscard]] std::shared_ptr<VerifyTask> verify_task();
    /// Lists the other folders that the Website has files in, or had.
    [[nodiscard]] std::shared_ptr<ListTask> list_task();
    /// Fetches what was found by verifying and is not in the Website.
    [[nodiscard]] std::shared_ptr<FetchTask> fetch_task();

    /// Plans what is to be sent and removed, and stages it; false when cancelled.
    [[nodiscard]] FileResult<bool> prepare(const Steps& steps = {});
    /// Sends and removes it. Null when the server has it all.
    [[nodiscard]] std::shared_ptr<SendTask> send_task();

    /// Completes the record and clears the staging folders. Does so once.
    [[nodiscard]] FileResult<void> close();

    [[nodiscard]] const QString& staging_folder() const { return staging_; }
    /// Whether it is one of the whole Website and not of a single file.
    [[nodiscard]] bool is_of_all() const { return order_.only.isEmpty(); }
    /// How many files the plan takes off the server.
    [[nodiscard]] qsizetype removals() const { return plan_.remove.size(); }

  private:
    FtpPublication(const Roots& roots, Order order, PublicationRecord record);

    [[nodiscard]] FileResult<void> take_in_fetched();
    [[nodiscard]] QStringList folders() const;
    void merge(const RemoteFiles& found);

    const Roots& roots_;
    Order order_;
    QString folder_;
    QString staging_;
    PublicationMode staged_as_;
    PublicationRecord record_;
    WebsiteSurvey survey_;
    RemoteFiles remote_;
    PublicationPlan plan_;
    std::shared_ptr<VerifyTask> verify_;
    std::shared_ptr<ListTask> list_;
    std::shared_ptr<FetchTask> fetch_;
    std::shared_ptr<SendTask> send_;
    bool closed_ = false;
};

}  // namespace pondera
