#pragma once

#include <QDialog>

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>

#include "tests/support/qt_text.h"
#include "workbench/prompts.h"

namespace pondera {

/// Saves a picture of a window, numbered, into the folder that the environment variable PONDERA_PICTURES names.
void photograph(QWidget& window, const QString& name);

/// A form as the person at the machine works it: widgets by their objectName, real clicks and keys. What cannot be done
/// (no such widget, a disabled or hidden button, no such entry) fails the test and closes the form. Each deed returns
/// the hand, for the next one.
class FormHand {
  public:
    explicit FormHand(QDialog& form) : form_(form) {}

    /// The form itself, for what the other functions do not offer.
    [[nodiscard]] QDialog& form() const { return form_; }

    /// The visible widget of that name.
    template <typename T>
    T& widget(const QString& name) const {
        if (T* found = form_.findChild<T*>(name); found && found->isVisible()) return *found;
        throw std::runtime_error(missing(name));
    }

    /// Replaces what a line edit or spin box holds.
    const FormHand& type(const QString& name, const QString& text) const;
    const FormHand& click(const QString& name) const;
    const FormHand& choose(const QString& name, const QString& entry) const;  ///< the entry's text in a list or tree
    const FormHand& double_click(const QString& name, const QString& entry) const;
    const FormHand& press(Qt::Key key) const;  ///< in the widget that has the focus

    const FormHand& photograph(const QString& name) const;

    /// The texts of the entries of a list or tree (top level).
    [[nodiscard]] QStringList entries(const QString& name) const;

  private:
    [[nodiscard]] std::string missing(const QString& what) const;
    [[nodiscard]] QPoint place_of(const QString& name, const QString& entry) const;

    QDialog& form_;
};

/// The person of a test: answers the prompts in the order of a script and records every message. A prompt that is not
/// next in the script, an answer that the message does not offer, a form left open and a step that was never asked for
/// each fail the test.
class ScriptedPrompts : public Prompts {
  public:
    using Filler = std::function<void(const FormHand&)>;

    ~ScriptedPrompts() override;

    /// Next comes a message whose text holds `part`.
    ScriptedPrompts& expect_message(const QString& part, Answer answer = Answer::kOk) {
        return expect({"message", part, answer});
    }

    /// Next comes the form of that objectName; it is really shown, and `fill` works it until it closes. Messages that
    /// the form shows meanwhile are the next steps; `told` are those to be confirmed.
    ScriptedPrompts& expect_form(const QString& name, Filler fill, const QStringList& told = {}) {
        expect({"form", name, {}, std::move(fill)});
        for (const QString& part : told) expect_message(part);
        return *this;
    }

    /// Next comes a picker of a file, a file to write, a folder or a colour ("#cc0000"); an empty one is Cancel.
    ScriptedPrompts& expect_file(const QString& path) { return expect({"file", path}); }
    ScriptedPrompts& expect_new_file(const QString& path) { return expect({"new file", path}); }
    ScriptedPrompts& expect_folder(const QString& path) { return expect({"folder", path}); }
    ScriptedPrompts& expect_colour(const QString& name) { return expect({"colour", name}); }

    /// Every message shown so far.
    [[nodiscard]] const QList<Message>& messages() const { return messages_; }

    /// Every question for a file so far.
    [[nodiscard]] const QList<FileQuestion>& questions() const { return questions_; }

    Answer message(const Message& message) override;
    bool run(QDialog& form) override;
    std::optional<QString> choose_file(const FileQuestion& question) override;
    std::optional<QString> choose_new_file(const FileQuestion& question) override;
    std::optional<QString> choose_folder(const QString& title, const QString& start_folder) override;
    std::optional<QColor> choose_colour(const QString& title, const QColor& initial) override;

  private:
    struct Step {
        std::string kind;
        QString text;  ///< part of the message, name of the form or colour, or path of the file
        Answer answer = Answer::kOk;
        Filler fill = {};

        [[nodiscard]] std::string words() const { return "the " + kind + ' ' + text.toStdString(); }
    };

    ScriptedPrompts& expect(Step step);

    std::optional<QString> picked(const std::string& kind, const QString& title);

    /// Takes the next step when it is of that kind; fails the test with `asked` when it is not.
    std::optional<Step> next(const std::string& kind, const QString& asked);

    std::deque<Step> script_;
    QList<Message> messages_;
    QList<FileQuestion> questions_;
};

/// Types names into a form that asks for one, each confirmed with OK.
inline ScriptedPrompts::Filler type_names(const QStringList& names) {
    return [names](const FormHand& form) {
        for (const QString& name : names)
            form.type(u"txtName"_s, name).photograph(form.form().windowTitle()).click(u"OKButton"_s);
    };
}

}  // namespace pondera
