#pragma once

#include <QString>

#include <atomic>
#include <chrono>
#include <memory>

class QThread;

namespace pondera {

/// Stands before an FTP server, counts the commands that it is told, and hands its replies on a while later, as a
/// server far away would. It works on a thread of its own; files go past it.
class HeldLine {
  public:
    /// `server` is "127.0.0.1:PORT".
    HeldLine(const QString& server, std::chrono::milliseconds held);
    ~HeldLine();
    HeldLine(const HeldLine&) = delete;
    HeldLine& operator=(const HeldLine&) = delete;

    [[nodiscard]] QString host() const { return host_; }
    /// Commands since the last call.
    int take_count() { return commands_.exchange(0); }

  private:
    std::atomic<int> commands_ = 0;
    QString host_;
    std::unique_ptr<QThread> thread_;
};

}  // namespace pondera
