#pragma once

#include <QString>

#include "base/steps.h"

namespace pondera {

enum class Cancelling { kNo, kYes };

/// What a long operation shows of itself: a two-word message in the status bar and a bar that counts the work; when it
/// can be cancelled, a button for that (Esc does the same).
class Progress {
  public:
    virtual ~Progress() = default;

    /// Starts a run of `steps` steps (0: unknown) with the two texts of the status bar ("Save of page", "in
    /// progress...").
    virtual void begin(const QString& what, const QString& state, int steps, Cancelling cancelling) = 0;

    /// The run turned out to have `steps` steps.
    virtual void set_steps(int steps) = 0;

    /// Advances to `done` steps and lets the window paint.
    virtual void advance(int done) = 0;

    /// True once the person has cancelled the run.
    [[nodiscard]] virtual bool cancelled() const = 0;

    /// Ends the run: the bar goes, the page label comes back.
    virtual void end() = 0;
};

/// Begins a progress run and ends it when it leaves scope, on the error ways too.
class ProgressRun {
  public:
    ProgressRun(Progress& progress, const QString& what, const QString& state, int steps,
                Cancelling cancelling = Cancelling::kNo)
        : progress_(progress), steps_(steps) {
        progress_.begin(what, state, steps, cancelling);
    }
    ~ProgressRun() { progress_.end(); }
    ProgressRun(const ProgressRun&) = delete;
    ProgressRun& operator=(const ProgressRun&) = delete;

    void advance(int done) { progress_.advance(done); }

    /// This run as the core's long work tells it; it must outlive that work.
    [[nodiscard]] Steps steps() {
        return [this](int done, int total) {
            if (total != steps_) progress_.set_steps(steps_ = total);
            progress_.advance(done);
            return !progress_.cancelled();
        };
    }

  private:
    Progress& progress_;
    int steps_;
};

}  // namespace pondera
