#pragma once

#include <QCoreApplication>
#include <QEventLoop>

#include <future>
#include <thread>
#include <type_traits>

namespace pondera {

/// Does work that may have to wait for a busy disk on a thread of its own, and gives what it returns. The window has
/// its events meanwhile, so the caller sees to it that nothing else begins.
template <typename Work>
[[nodiscard]] std::invoke_result_t<Work> in_background(const Work& work) {
    QCoreApplication::processEvents();
    std::packaged_task<std::invoke_result_t<Work>()> task(work);
    auto result = task.get_future();
    QEventLoop loop;
    std::thread worker([&] {
        task();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    worker.join();
    return result.get();
}

}  // namespace pondera
