#pragma once

#include <QToolBar>

#include <functional>

#include "workbench/editing_control.h"

class QComboBox;

namespace pondera {

struct Situation;

/// The text toolbar: the font list and the size list, which show the font at the caret and set that of the selected
/// text.
class TextToolbar : public QToolBar {
    Q_OBJECT

  public:
    /// `execute` hands a font name (kFontName) or a size from 1 to 7 (kFontSize) to the editing control.
    TextToolbar(const std::function<void(EditCommand, const QString&)>& execute, QWidget* parent);

    void refresh(const Situation& situation);

  private:
    QComboBox* fonts_;
    QComboBox* sizes_;
};

}  // namespace pondera
