#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>
#include <utility>

#include "workbench/prompts.h"

namespace pondera {

/// Asks the person in windows: message boxes, modal forms and the system's pickers, all above the window that is
/// active.
class QtPrompts : public Prompts {
  public:
    /// `window` is the parent of everything shown; until one is set, windows stand alone.
    void set_window(QWidget* window) { window_ = window; }

    /// What the Help button of the colour picker does: it shows the help page of the command that is running.
    void set_help(std::function<void()> show_help) { show_help_ = std::move(show_help); }

    Answer message(const Message& message) override;
    bool run(QDialog& form) override;
    std::optional<QString> choose_file(const FileQuestion& question) override;
    std::optional<QString> choose_new_file(const FileQuestion& question) override;
    std::optional<QString> choose_folder(const QString& title, const QString& start_folder) override;
    std::optional<QColor> choose_colour(const QString& title, const QColor& initial) override;

  private:
    [[nodiscard]] QWidget* parent() const;

    QPointer<QWidget> window_;
    std::function<void()> show_help_;
};

}  // namespace pondera
