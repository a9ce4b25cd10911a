#pragma once

#include <QHash>
#include <QJsonObject>
#include <QString>

#include "workbench/editing_control.h"

namespace pondera {

/// What the editing control says of itself in one call: the status of every command, the font at the caret, whether
/// there are unsaved changes. The default one is that of a control without a page: nothing can be executed.
class EditorState {
  public:
    EditorState() = default;

    /// Reads {"statuses":{"5000":3,...},"font":"Arial","size":"3","modified":true}.
    explicit EditorState(const QJsonObject& state);

    [[nodiscard]] CommandStatus status(EditCommand command) const;
    [[nodiscard]] bool can(EditCommand command) const;  ///< enabled, latched or mixed
    [[nodiscard]] const QString& font() const { return font_; }
    [[nodiscard]] const QString& size() const { return size_; }
    [[nodiscard]] bool modified() const { return modified_; }

  private:
    QHash<int, int> statuses_;
    QString font_;
    QString size_;
    bool modified_ = false;
};

}  // namespace pondera
