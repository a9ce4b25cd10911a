#pragma once

#include <QDialog>
#include <QList>

#include "workbench/command.h"

class QLabel;
class QListWidget;

namespace pondera {

class Workbench;

/// One choice of a picker.
struct PickerEntry {
    QString value;
    QString text;     ///< what the list shows
    QString picture;  ///< path of a preview; the entry is blank when there is no such file
};

/// A picker's own texts.
struct PickerTexts {
    QString form;  ///< the form's name
    QString title;
    QString prompt;   ///< above the list, with its accelerator
    QString nothing;  ///< what stands below the list when it is empty
    QString refusal;  ///< the message for OK without a choice
    Help help;
    bool pictures = false;  ///< entries are shown as their previews with the text below
};

/// A form that offers a list to choose one entry from: by mouse or keys and OK, or by a double click. Nothing is chosen
/// at first.
class PickerForm : public QDialog {
    Q_OBJECT

  public:
    PickerForm(Workbench& workbench, const PickerTexts& texts, const QList<PickerEntry>& entries);

    /// The value of the chosen entry; empty while there is none.
    [[nodiscard]] QString choice() const;

    void accept() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

    [[nodiscard]] QListWidget& list() const { return *list_; }

    /// Shows a line about the chosen entry below the list.
    void show_about(const QString& text);

  private:
    void show_as_pictures();

    Workbench& workbench_;
    QString refusal_;
    QListWidget* list_;
    QLabel* about_;
};

}  // namespace pondera
