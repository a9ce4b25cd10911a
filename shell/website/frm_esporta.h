#pragma once

#include <QDialog>

#include "site/website_export.h"

class QLabel;
class QLineEdit;
class QRadioButton;

namespace pondera {

class Workbench;

/// Asks where the open Website is exported to: a folder or a ZIP file. Closes with OK only on a place that can be
/// written to, and after the person agreed to what would be written over.
class Frm_Esporta : public QDialog {
    Q_OBJECT

  public:
    /// `folder` is offered first.
    Frm_Esporta(Workbench& workbench, const QString& folder);

    /// Where the person wants it; meant for after the form was accepted.
    [[nodiscard]] const WebsiteExport& plan() const { return plan_; }

    void accept() override;

  private:
    [[nodiscard]] ExportForm form() const;
    [[nodiscard]] QString place() const;
    void change_form();
    void browse();
    void show_place();

    Workbench& workbench_;
    QRadioButton* to_folder_;
    QRadioButton* to_zip_;
    QLineEdit* path_;
    QLabel* note_;
    QString agreed_;  ///< the ZIP file that the picker has asked about
    WebsiteExport plan_;
};

}  // namespace pondera
