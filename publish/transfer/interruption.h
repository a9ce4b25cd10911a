#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <set>

namespace pondera {

/// Lets one thread end what another waits for: it shuts the sockets on which libcurl may be waiting, wherever it is.
class Interruption {
  public:
    /// Forgets an earlier `raise`.
    void clear();
    /// Ends all waits, now and until `clear`.
    void raise();
    [[nodiscard]] bool raised() const;
    /// Waits; false when `raise` ended it.
    bool wait(std::chrono::milliseconds time);

    void socket_opened(int socket);
    void socket_closing(int socket);
    /// Shuts all sockets that are open, so that closing their connections waits for nobody.
    void shut_sockets();

  private:
    void shut_locked();

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    bool raised_ = false;
    std::set<int> sockets_;
};

}  // namespace pondera
