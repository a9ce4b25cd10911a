#include "publish/transfer/interruption.h"

#include <sys/socket.h>

namespace pondera {

void Interruption::clear() {
    const std::lock_guard lock(mutex_);
    raised_ = false;
}

void Interruption::raise() {
    const std::lock_guard lock(mutex_);
    raised_ = true;
    shut_locked();
    changed_.notify_all();
}

bool Interruption::raised() const {
    const std::lock_guard lock(mutex_);
    return raised_;
}

bool Interruption::wait(std::chrono::milliseconds time) {
    std::unique_lock lock(mutex_);
    return !changed_.wait_for(lock, time, [this] { return raised_; });
}

void Interruption::socket_opened(int socket) {
    const std::lock_guard lock(mutex_);
    sockets_.insert(socket);
    if (raised_) shut_locked();
}

void Interruption::socket_closing(int socket) {
    const std::lock_guard lock(mutex_);
    sockets_.erase(socket);
}

void Interruption::shut_sockets() {
    const std::lock_guard lock(mutex_);
    shut_locked();
}

void Interruption::shut_locked() {
    for (const int socket : sockets_) ::shutdown(socket, SHUT_RDWR);
}

}  // namespace pondera
