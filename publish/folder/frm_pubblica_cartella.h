#pragma once

#include <QDialog>

#include <functional>

#include "publish/sending/folder_publication.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace pondera {

class Workbench;

/// Publishes the open Website to a folder and shows how far it is. The folder is remembered for each Website.
class Frm_Pubblica_Cartella : public QDialog {
    Q_OBJECT

  public:
    /// Brings the Website's published pages up to date; false when that failed and was told.
    using Prepare = std::function<bool()>;

    Frm_Pubblica_Cartella(Workbench& workbench, Prepare prepare);

    /// Publishes.
    void accept() override;
    /// Stops a publication that runs; closes the form else.
    void reject() override;

  private:
    void build();
    QWidget* fields();
    QWidget* result();
    void browse();
    void show_place();
    [[nodiscard]] QString folder() const;
    [[nodiscard]] bool may_publish(const QString& folder);
    void publish(const QString& folder);
    void show_result(const QString& folder, const FileResult<FolderPublication>& published);
    void set_running(bool running);

    Workbench& workbench_;
    Prepare prepare_;
    QWidget* fields_;
    QLineEdit* path_;
    QLabel* note_;
    QRadioButton* changed_;
    QCheckBox* remove_;
    QProgressBar* bar_;
    QLabel* state_;
    QLabel* link_;
    QPushButton* publish_;
    QPushButton* close_;
    bool running_ = false;
    bool cancelled_ = false;
};

}  // namespace pondera
