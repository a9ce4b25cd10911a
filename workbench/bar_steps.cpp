#include "workbench/bar_steps.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProgressBar>

#include <algorithm>
#include <chrono>
#include <memory>

namespace pondera {

namespace {

constexpr std::chrono::milliseconds kBetweenAnswers{30};

}  // namespace

Steps steps_of_bar(QProgressBar& bar, const bool& cancelled) {
    auto since_answered = std::make_shared<QElapsedTimer>();
    since_answered->start();
    return [&bar, &cancelled, since_answered](int done, int total) {
        bar.setRange(0, std::max(total, 1));
        bar.setValue(done);
        if (std::chrono::milliseconds(since_answered->elapsed()) >= kBetweenAnswers) {
            QCoreApplication::processEvents();
            since_answered->restart();
        }
        return !cancelled;
    };
}

}  // namespace pondera
