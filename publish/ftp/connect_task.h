#pragma once

#include <QStringList>

#include "publish/commands/remote_task.h"

namespace pondera {

/// Goes to a Website's folder on the server and lists it. What is not there yet is noted; it is made when something is
/// sent. Meant for a session that begins: its first folder is the one that the login gives.
class ConnectTask : public RemoteTask {
  public:
    /// `way` is that of `way_to_site`.
    explicit ConnectTask(QStringList way) : way_(std::move(way)) {}

    void next_turn(CommandStack& stack, const QString& folder) override;
    void answered(const CommandAnswer& answer, CommandStack& stack) override;

    /// The Website's folder, absolute, whether it is there or not; empty while the server has answered nothing.
    [[nodiscard]] const QString& remote_folder() const { return remote_folder_; }
    /// Whether the Website's folder is there.
    [[nodiscard]] bool present() const { return entered_ == way_.size(); }
    /// Whether the folder could be listed.
    [[nodiscard]] bool listed() const { return listed_; }
    /// What it holds.
    [[nodiscard]] const RemoteListing& listing() const { return listing_; }

  private:
    QStringList way_;
    qsizetype entered_ = 0;
    bool begun_ = false;
    bool listed_ = false;
    QString remote_folder_;
    RemoteListing listing_;
};

}  // namespace pondera
