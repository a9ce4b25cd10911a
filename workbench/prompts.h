#pragma once

#include <QColor>
#include <QList>
#include <QString>

#include <optional>

class QDialog;

namespace pondera {

enum class Answer { kOk, kCancel, kYes, kNo, kSave, kDiscard, kOverwrite, kReload };
enum class MessageIcon { kNone, kInformation, kQuestion, kExclamation, kCritical };

/// A message box: the first answer is the default button; Esc gives kCancel when offered, else kNo, else the only
/// answer.
struct Message {
    QString text;
    MessageIcon icon = MessageIcon::kInformation;
    QList<Answer> answers{Answer::kOk};
    QString title;  ///< "Pondera" when empty
};

/// A file picker: `filters` in Qt's form, "Pictures (*.gif *.jpg)".
struct FileQuestion {
    QString title;
    QString start_folder;
    QStringList filters;
};

/// The one seam to the person. The program's implementation shows windows; the tests' one answers from a script and
/// records every text.
class Prompts {
  public:
    virtual ~Prompts() = default;

    /// Shows a message box and gives the answer.
    virtual Answer message(const Message& message) = 0;

    /// Runs a form modally; true when it was accepted. The form has its own OK handling and stays open while that
    /// refuses.
    virtual bool run(QDialog& form) = 0;

    virtual std::optional<QString> choose_file(const FileQuestion& question) = 0;

    /// Where to write a file; `start_folder` may end in the name that is offered. The person has agreed to replace a
    /// file that is there.
    virtual std::optional<QString> choose_new_file(const FileQuestion& question) = 0;
    virtual std::optional<QString> choose_folder(const QString& title, const QString& start_folder) = 0;
    virtual std::optional<QColor> choose_colour(const QString& title, const QColor& initial) = 0;

    /// `message` with the OK button only.
    void tell(const QString& text, MessageIcon icon = MessageIcon::kExclamation) {
        message({text, icon, {Answer::kOk}, {}});
    }

    /// True when `question` was answered with Yes.
    bool yes(const QString& question) {
        return message({question, MessageIcon::kQuestion, {Answer::kYes, Answer::kNo}, {}}) == Answer::kYes;
    }

    /// As yes, for what cannot be undone: No is the default button, so that Enter alone does nothing.
    bool really(const QString& question, const QList<Answer>& answers = {Answer::kNo, Answer::kYes}) {
        return message({question, MessageIcon::kQuestion, answers, {}}) == Answer::kYes;
    }
};

}  // namespace pondera
