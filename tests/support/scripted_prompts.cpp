#include "tests/support/scripted_prompts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace pondera {
namespace {

/// A form fits a small screen, and every key with Alt does one thing in it.
void expect_good_form(const QDialog& form) {
    EXPECT_TRUE(form.width() <= 1024 && form.height() <= 700) << form.objectName().toStdString();
    QHash<QKeySequence, QString> keys;
    const auto note = [&](const QString& caption) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        if (key.isEmpty()) return;
        EXPECT_FALSE(keys.contains(key)) << form.objectName().toStdString() << ": " << keys[key].toStdString() << ", "
                                         << caption.toStdString();
        keys[key] = caption;
    };
    for (const auto* button : form.findChildren<QAbstractButton*>())
        if (button->isVisible()) note(button->text());
    for (const auto* label : form.findChildren<QLabel*>())
        if (label->isVisible() && label->buddy()) note(label->text());
}

}  // namespace

void photograph(QWidget& window, const QString& name) {
    const QDir folder(qEnvironmentVariable("PONDERA_PICTURES"));
    if (!qEnvironmentVariableIsSet("PONDERA_PICTURES") || !QDir().mkpath(folder.path())) return;
    const auto number = folder.entryList(QDir::Files).size() + 1;
    EXPECT_TRUE(window.grab().save(folder.filePath(u"%1-%2.png"_s.arg(number, 2, 10, QChar(u'0')).arg(name))));
}

std::string FormHand::missing(const QString& what) const {
    return u"the form %1 shows no %2"_s.arg(form_.objectName(), what).toStdString();
}

const FormHand& FormHand::type(const QString& name, const QString& text) const {
    auto& target = widget<QWidget>(name);
    target.setFocus();
    auto* line = qobject_cast<QLineEdit*>(&target);
    if (!line) line = target.findChild<QLineEdit*>();
    if (!line) throw std::runtime_error(missing(name + u" to type in"_s));
    line->selectAll();
    text.isEmpty() ? line->del() : line->insert(text);
    return *this;
}

const FormHand& FormHand::click(const QString& name) const {
    auto& button = widget<QAbstractButton>(name);
    if (!button.isEnabled()) throw std::runtime_error(missing(name + u" that is enabled"_s));
    QTest::mouseClick(&button, Qt::LeftButton);
    return *this;
}

const FormHand& FormHand::choose(const QString& name, const QString& entry) const {
    QTest::mouseClick(widget<QAbstractItemView>(name).viewport(), Qt::LeftButton, {}, place_of(name, entry));
    return *this;
}

const FormHand& FormHand::double_click(const QString& name, const QString& entry) const {
    choose(name, entry);
    QTest::mouseDClick(widget<QAbstractItemView>(name).viewport(), Qt::LeftButton, {}, place_of(name, entry));
    return *this;
}

QPoint FormHand::place_of(const QString& name, const QString& entry) const {
    auto& view = widget<QAbstractItemView>(name);
    const auto found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, entry, 1,
                                           Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
    if (found.isEmpty()) throw std::runtime_error(missing(entry + u" in "_s + name));
    view.scrollTo(found.first());
    return view.visualRect(found.first()).center();
}

QStringList FormHand::entries(const QString& name) const {
    const QAbstractItemModel* model = widget<QAbstractItemView>(name).model();
    QStringList texts;
    for (int row = 0; row < model->rowCount(); ++row) texts += model->index(row, 0).data().toString();
    return texts;
}

const FormHand& FormHand::press(Qt::Key key) const {
    QWidget* focus = form_.focusWidget();
    QTest::keyClick(focus ? focus : &form_, key);
    return *this;
}

const FormHand& FormHand::photograph(const QString& name) const {
    pondera::photograph(form_, name);
    return *this;
}

ScriptedPrompts::~ScriptedPrompts() {
    for (const Step& step : script_) ADD_FAILURE() << "never asked for: " << step.words();
}

ScriptedPrompts& ScriptedPrompts::expect(Step step) {
    script_.push_back(std::move(step));
    return *this;
}

std::optional<ScriptedPrompts::Step> ScriptedPrompts::next(const std::string& kind, const QString& asked) {
    if (script_.empty() || script_.front().kind != kind) {
        ADD_FAILURE() << "asked for the " << kind << ": " << asked.toStdString() << "\nbut next in the script is "
                      << (script_.empty() ? "nothing" : script_.front().words());
        return std::nullopt;
    }
    Step step = std::move(script_.front());
    script_.pop_front();
    return step;
}

Answer ScriptedPrompts::message(const Message& message) {
    messages_ += message;
    const auto step = next("message", message.text);
    const Answer refusal = message.answers.value(message.answers.size() - 1);
    if (!step) return refusal;
    EXPECT_TRUE(message.text.contains(step->text))
        << "message: " << message.text.toStdString() << "\nexpected: " << step->text.toStdString();
    if (message.answers.contains(step->answer)) return step->answer;
    ADD_FAILURE() << "the scripted answer is not offered by \"" << message.text.toStdString() << '"';
    return refusal;
}

bool ScriptedPrompts::run(QDialog& form) {
    const auto step = next("form", form.objectName());
    if (!step) return false;
    EXPECT_EQ(step->text, form.objectName());
    QTimer::singleShot(0, &form, [&] {
        expect_good_form(form);
        try {
            step->fill(FormHand(form));
        } catch (const std::runtime_error& error) {
            ADD_FAILURE() << error.what();
            return form.reject();
        }
        if (!form.isVisible()) return;
        ADD_FAILURE() << "the form " << form.objectName().toStdString() << " was left open";
        form.reject();
    });
    return form.exec() == QDialog::Accepted;
}

std::optional<QString> ScriptedPrompts::picked(const std::string& kind, const QString& title) {
    const auto step = next(kind, title);
    return step && !step->text.isEmpty() ? std::optional(step->text) : std::nullopt;
}

std::optional<QString> ScriptedPrompts::choose_file(const FileQuestion& question) {
    questions_ += question;
    return picked("file", question.title);
}

std::optional<QString> ScriptedPrompts::choose_new_file(const FileQuestion& question) {
    return picked("new file", question.title);
}

std::optional<QString> ScriptedPrompts::choose_folder(const QString& title, const QString& /*start_folder*/) {
    return picked("folder", title);
}

std::optional<QColor> ScriptedPrompts::choose_colour(const QString& title, const QColor& /*initial*/) {
    return picked("colour", title).transform([](const QString& name) { return QColor(name); });
}

}  // namespace pondera
