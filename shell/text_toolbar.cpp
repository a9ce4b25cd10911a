#include "shell/text_toolbar.h"

#include <QComboBox>

#include "shell/command_actions.h"
#include "shell/text_lists.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QComboBox* list(const QString& name, const QStringList& entries, const QString& tip) {
    auto* box = new QComboBox;
    box->setObjectName(name);
    box->addItems(entries);
    box->setToolTip(tip);
    box->setAccessibleName(tip);
    box->setCurrentIndex(-1);
    return box;
}

}  // namespace

TextToolbar::TextToolbar(const std::function<void(EditCommand, const QString&)>& execute, QWidget* parent)
    : QToolBar(parent),
      fonts_(list(u"font_list"_s, font_names(), u"Font"_s)),
      sizes_(list(u"size_list"_s, font_sizes(), u"Font Size"_s)) {
    setObjectName("text_toolbar"_L1);
    setWindowTitle(u"Text Toolbar"_s);
    addWidget(fonts_);
    addWidget(sizes_);
    connect(fonts_, &QComboBox::textActivated, this,
            [execute](const QString& font) { execute(EditCommand::kFontName, font); });
    connect(sizes_, &QComboBox::textActivated, this,
            [execute](const QString& size) { execute(EditCommand::kFontSize, size.left(1)); });
}

void TextToolbar::refresh(const Situation& situation) {
    fonts_->setEnabled(situation.editing && situation.editor.can(EditCommand::kFontName));
    sizes_->setEnabled(situation.editing && situation.editor.can(EditCommand::kFontSize));
    fonts_->setPlaceholderText(situation.editor.font());
    fonts_->setCurrentIndex(fonts_->findText(situation.editor.font(), Qt::MatchFixedString));
    const QString size = situation.editor.size().left(1);
    sizes_->setCurrentIndex(size.isEmpty() ? -1 : sizes_->findText(size, Qt::MatchStartsWith));
}

}  // namespace pondera
