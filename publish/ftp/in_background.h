#pragma once

#include <QCoreApplication>
#include <QEventLoop>

#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

namespace pondera {

/// Does work that may have to wait for a busy disk on a thread of its own, and gives what it returns. The window has
/// its events meanwhile, so the caller sees to it that nothing else begins.
template <typename Work>
[[nodiscard]] std::invoke_result_t<Work> in_background(const Work& work) {
    QCoreApplication::processEvents();
    std::optional<std::invoke_result_t<Work>> result;
    QEventLoop loop;
    std::thread worker([&] {
        result = work();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    worker.join();
    return *std::move(result);
}

}  // namespace pondera
