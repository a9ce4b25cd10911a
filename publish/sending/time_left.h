#pragma once

#include <QString>

#include <chrono>

#include "publish/sending/send_task.h"

namespace pondera {

/// The time that a sending will still take, from its speed so far; a file costs its bytes and a fixed share beside
/// them.
class TimeLeft {
  public:
    /// The progress at a moment, counted from the beginning.
    void note(std::chrono::milliseconds elapsed, const SendProgress& progress);

    /// "about 3 minutes left", "less than a minute left"; empty while nothing can be said yet.
    [[nodiscard]] QString text() const;

  private:
    std::chrono::milliseconds elapsed_{0};
    SendProgress progress_;
};

/// A progress in words: "12 of 2,000 files, 1.2 of 75.0 MB".
[[nodiscard]] QString progress_text(const SendProgress& progress);

}  // namespace pondera
