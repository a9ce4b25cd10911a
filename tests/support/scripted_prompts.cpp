#include "tests/support/scripted_prompts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The objectName, which is also the class name of every form of the program.
QString form_name(const QDialog& form) {
    return form.objectName().isEmpty() ? QString::fromLatin1(form.metaObject()->className()).section(u"::"_s, -1)
                                       : form.objectName();
}

/// What Esc answers.
Answer escape_of(const Message& message) {
    for (const Answer answer : {Answer::kCancel, Answer::kNo})
        if (message.answers.contains(answer)) return answer;
    return message.answers.value(0, Answer::kOk);
}

QModelIndex index_of(const QAbstractItemModel& model, const QModelIndex& parent, const QString& text) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.data().toString() == text) return index;
        if (const QModelIndex below = index_of(model, index, text); below.isValid()) return below;
    }
    return {};
}

}  // namespace

std::string FormHand::missing(const QString& what) const {
    return u"the form %1 shows no %2"_s.arg(form_name(form_), what).toStdString();
}

void FormHand::type(const QString& name, const QString& text) const {
    auto& target = widget<QWidget>(name);
    target.setFocus();
    if (auto* edit = qobject_cast<QPlainTextEdit*>(&target)) return edit->setPlainText(text);
    auto* line = qobject_cast<QLineEdit*>(&target);
    if (!line) line = target.findChild<QLineEdit*>();
    if (!line) throw std::runtime_error(missing(name + u" to type in"_s));
    line->selectAll();
    text.isEmpty() ? line->del() : line->insert(text);
}

void FormHand::click(const QString& name) const {
    auto& button = widget<QAbstractButton>(name);
    if (!button.isEnabled()) throw std::runtime_error(missing(name + u" that is enabled"_s));
    QTest::mouseClick(&button, Qt::LeftButton);
}

void FormHand::choose(const QString& name, const QString& entry) const {
    auto& target = widget<QWidget>(name);
    if (auto* combo = qobject_cast<QComboBox*>(&target)) {
        const int row = combo->findText(entry);
        if (row < 0) throw std::runtime_error(missing(entry + u" in "_s + name));
        combo->setCurrentIndex(row);
        emit combo->activated(row);
        return;
    }
    auto& view = widget<QAbstractItemView>(name);
    const QModelIndex index = index_of(*view.model(), {}, entry);
    if (!index.isValid()) throw std::runtime_error(missing(entry + u" in "_s + name));
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
}

void FormHand::double_click(const QString& name, const QString& entry) const {
    choose(name, entry);
    auto& view = widget<QAbstractItemView>(name);
    const QModelIndex index = index_of(*view.model(), {}, entry);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
}

QStringList FormHand::entries(const QString& name) const {
    auto& target = widget<QWidget>(name);
    auto* combo = qobject_cast<QComboBox*>(&target);
    const QAbstractItemModel* model = combo ? combo->model() : widget<QAbstractItemView>(name).model();
    QStringList texts;
    for (int row = 0; row < model->rowCount(); ++row) texts += model->index(row, 0).data().toString();
    return texts;
}

void FormHand::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QWidget* focus = form_.focusWidget();
    QTest::keyClick(focus ? focus : &form_, key, modifiers);
}

void FormHand::photograph(const QString& name) const {
    const QString folder = qEnvironmentVariable("PONDERA_PICTURES");
    if (!folder.isEmpty()) form_.grab().save(QDir(folder).filePath(name + u".png"_s));
}

ScriptedPrompts::~ScriptedPrompts() {
    for (const Step& step : script_) ADD_FAILURE() << "never asked for: " << describe(step).toStdString();
}

ScriptedPrompts& ScriptedPrompts::expect_message(const QString& part, Answer answer) {
    script_.push_back(MessageStep{part, answer});
    return *this;
}

ScriptedPrompts& ScriptedPrompts::expect_form(const QString& name, Filler fill) {
    script_.push_back(FormStep{name, std::move(fill)});
    return *this;
}

ScriptedPrompts& ScriptedPrompts::expect_file(const QString& path) {
    script_.push_back(FileStep{path});
    return *this;
}

ScriptedPrompts& ScriptedPrompts::expect_folder(const QString& path) {
    script_.push_back(FolderStep{path});
    return *this;
}

ScriptedPrompts& ScriptedPrompts::expect_colour(const QColor& colour) {
    script_.push_back(ColourStep{colour});
    return *this;
}

template <typename T>
std::optional<T> ScriptedPrompts::next(const QString& asked) {
    if (script_.empty() || !std::holds_alternative<T>(script_.front())) {
        ADD_FAILURE() << "asked for " << asked.toStdString() << "\nbut next in the script is "
                      << (script_.empty() ? "nothing" : describe(script_.front()).toStdString());
        return std::nullopt;
    }
    T step = std::get<T>(std::move(script_.front()));
    script_.pop_front();
    return step;
}

QString ScriptedPrompts::describe(const Step& step) {
    struct Words {
        QString operator()(const MessageStep& s) const { return u"the message \"%1\""_s.arg(s.part); }
        QString operator()(const FormStep& s) const { return u"the form "_s + s.name; }
        QString operator()(const FileStep& s) const { return u"the file "_s + s.path; }
        QString operator()(const FolderStep& s) const { return u"the folder "_s + s.path; }
        QString operator()(const ColourStep&) const { return u"a colour"_s; }
    };
    return std::visit(Words{}, step);
}

Answer ScriptedPrompts::message(const Message& message) {
    messages_ += message;
    const auto step = next<MessageStep>(u"an answer to the message \"%1\""_s.arg(message.text));
    if (!step) return escape_of(message);
    EXPECT_TRUE(message.text.contains(step->part))
        << "message: " << message.text.toStdString() << "\nexpected: " << step->part.toStdString();
    if (message.answers.contains(step->answer)) return step->answer;
    ADD_FAILURE() << "the scripted answer is not offered by \"" << message.text.toStdString() << '"';
    return escape_of(message);
}

bool ScriptedPrompts::run(QDialog& form) {
    const auto step = next<FormStep>(u"the form "_s + form_name(form));
    if (!step) return false;
    EXPECT_EQ(step->name, form_name(form));
    QTimer::singleShot(0, &form, [&] {
        try {
            step->fill(FormHand(form));
        } catch (const std::runtime_error& error) {
            ADD_FAILURE() << error.what();
            return form.reject();
        }
        if (!form.isVisible()) return;
        ADD_FAILURE() << "the form " << form_name(form).toStdString() << " was left open";
        form.reject();
    });
    return form.exec() == QDialog::Accepted;
}

std::optional<QString> ScriptedPrompts::choose_file(const FileQuestion& question) {
    questions_ += question;
    const auto step = next<FileStep>(u"a file: "_s + question.title);
    return step && !step->path.isEmpty() ? std::optional(step->path) : std::nullopt;
}

std::optional<QString> ScriptedPrompts::choose_folder(const QString& title, const QString& start_folder) {
    questions_ += FileQuestion{title, start_folder, {}};
    const auto step = next<FolderStep>(u"a folder: "_s + title);
    return step && !step->path.isEmpty() ? std::optional(step->path) : std::nullopt;
}

std::optional<QColor> ScriptedPrompts::choose_colour(const QString& title, const QColor& initial) {
    const auto step = next<ColourStep>(u"a colour: %1 (now %2)"_s.arg(title, initial.name()));
    return step && step->colour.isValid() ? std::optional(step->colour) : std::nullopt;
}

}  // namespace pondera
