#pragma once

#include <QDialog>

#include "site/file_usage.h"

class QButtonGroup;
class QCheckBox;
class QLabel;
class QListWidget;

namespace pondera {

class PicturePreview;
class Workbench;

/// Deletes files of the open Website: those of a media folder or any that are no pages. It shows the pictures and who
/// still uses a file, and stays open for the next one.
class Frm_Cancella_Imm : public QDialog {
    Q_OBJECT

  public:
    Frm_Cancella_Imm(Workbench& workbench, FileUsage usage);

    [[nodiscard]] bool has_deleted() const { return has_deleted_; }

    /// Deletes what is chosen, after a question; the form stays open.
    void accept() override;

  private:
    void fill_list();
    void browse();
    void show_choice();
    void ask_and_delete(const QStringList& files);
    [[nodiscard]] QString usage_text(const QStringList& files) const;
    [[nodiscard]] QStringList chosen_files() const;

    Workbench& workbench_;
    FileUsage usage_;
    QButtonGroup* folders_;
    QListWidget* list_;
    QCheckBox* unused_only_;
    PicturePreview* preview_;
    QLabel* file_;
    QLabel* users_;
    QString picked_;  // by the file picker, when it is not in the list
    bool has_deleted_ = false;
};

}  // namespace pondera
