#pragma once

#include <QString>

namespace pondera {

/// What a long operation shows of itself: a two-word message in the status bar and a bar that counts the work.
class Progress {
  public:
    virtual ~Progress() = default;

    /// Starts a run of `steps` steps (0: unknown) with the two texts of the status bar ("Save of page", "in
    /// progress...").
    virtual void begin(const QString& what, const QString& state, int steps) = 0;

    /// Advances to `done` steps and lets the window paint.
    virtual void advance(int done) = 0;

    /// Ends the run: the bar goes, the page label comes back.
    virtual void end() = 0;
};

/// Begins a progress run and ends it when it leaves scope, on the error ways too.
class ProgressRun {
  public:
    ProgressRun(Progress& progress, const QString& what, const QString& state, int steps) : progress_(progress) {
        progress_.begin(what, state, steps);
    }
    ~ProgressRun() { progress_.end(); }
    ProgressRun(const ProgressRun&) = delete;
    ProgressRun& operator=(const ProgressRun&) = delete;

    void advance(int done) { progress_.advance(done); }

  private:
    Progress& progress_;
};

}  // namespace pondera
