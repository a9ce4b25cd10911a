#pragma once

#include <QDialog>

#include <functional>
#include <optional>

#include "workbench/command.h"

class QLineEdit;

namespace pondera {

class Workbench;

/// A name form's own texts.
struct NameTexts {
    QString form{};  ///< the form's name
    QString title;
    QString prompt;  ///< above the name, with its accelerator
    QString note;    ///< below the name
    Help help;
    QString name{};  ///< offered at first
};

/// Asks for a name; closes with OK only on one that is not refused.
class NameForm : public QDialog {
    Q_OBJECT

  public:
    /// The message that refuses a name, nothing for a good one.
    using Refusal = std::function<std::optional<QString>(const QString& name)>;

    NameForm(Workbench& workbench, const NameTexts& texts, Refusal refusal);

    [[nodiscard]] QString name() const;

    void accept() override;

  private:
    Workbench& workbench_;
    Refusal refusal_;
    QLineEdit* name_;
};

}  // namespace pondera
