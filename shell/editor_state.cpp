#include "shell/editor_state.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The font that is asked for first: "Arial" of "\"Arial\", sans-serif".
QString first_family(const QString& families) {
    return families.section(u',', 0, 0).remove(u'"').trimmed();
}

}  // namespace

EditorState::EditorState(const QJsonObject& state)
    : font_(first_family(state["font"_L1].toString())),
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
