#pragma once

#include <QDialog>
#include <QSize>

#include <functional>

#include "workbench/command.h"

class QCheckBox;
class QLineEdit;

namespace pondera {

class Prompts;

/// What the dialog asks a size for.
struct SizeQuestion {
    QString caption;  ///< "Image Size"
    QSize size;       ///< the size before
    Help help;
};

/// Asks for a width and a height in pixels, from 1 to 30000. While the proportions are kept, each follows the other.
class Frm_Ridim_Imm : public QDialog {
    Q_OBJECT

  public:
    Frm_Ridim_Imm(SizeQuestion question, Prompts& prompts, const std::function<void(const Help&)>& show_help,
                  QWidget* parent = nullptr);

    /// The size typed, after the form was accepted.
    [[nodiscard]] QSize size() const { return size_; }

    void accept() override;

  private:
    void typed(QLineEdit& field, QLineEdit& other, qreal other_per_field);

    SizeQuestion question_;
    Prompts& prompts_;
    QLineEdit* width_;
    QLineEdit* height_;
    QCheckBox* proportional_;
    QSize size_;
};

}  // namespace pondera
