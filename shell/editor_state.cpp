#include "shell/editor_state.h"

#include <QStringList>

#include <algorithm>

#include "shell/text_lists.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The font to show for a style's list of families: the first that the font list knows, else the first that is a name.
/// Those before it ("-apple-system") stand for the visitor's own system.
QString shown_font(const QString& families) {
    QStringList names = families.split(u',', Qt::SkipEmptyParts);
    for (QString& name : names) name = name.remove(u'"').trimmed();
    for (const QString& name : names) {
        if (font_names().contains(name, Qt::CaseInsensitive)) return name;
    }
    const auto named = std::ranges::find_if(names, [](const QString& name) { return !name.startsWith(u'-'); });
    return named == names.end() ? QString() : *named;
}

}  // namespace

EditorState::EditorState(const QJsonObject& state)
    : font_(shown_font(state["font"_L1].toString())),
      size_(state["size"_L1].toString()),
      modified_(state["modified"_L1].toBool()) {
    const QJsonObject statuses = state["statuses"_L1].toObject();
    for (auto status = statuses.begin(); status != statuses.end(); ++status) {
        statuses_.insert(status.key().toInt(), status.value().toInt());
    }
}

CommandStatus EditorState::status(EditCommand command) const {
    return static_cast<CommandStatus>(statuses_.value(static_cast<int>(command)));
}

bool EditorState::can(EditCommand command) const {
    const CommandStatus status = this->status(command);
    return status != CommandStatus::kNotSupported && status != CommandStatus::kDisabled;
}

}  // namespace pondera
