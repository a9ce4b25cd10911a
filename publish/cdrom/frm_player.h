#pragma once

#include <QDialog>

#include <functional>

#include "publish/cdrom/multimedia_drives.h"

class QComboBox;
class QLabel;
class QProgressBar;

namespace pondera {

class Workbench;

/// Makes the multimedia package of the open Website on the drive that the person chooses, and shows how far it is. It
/// closes when the package is whole or was cancelled; after a failure it stays open for another try.
class frm_player : public QDialog {
    Q_OBJECT

  public:
    /// `drives` gives those of the moment; `prepare` brings the published pages up to date; false, after telling why,
    /// when it could not.
    frm_player(Workbench& workbench, std::function<QList<MultimediaDrive>()> drives, std::function<bool()> prepare);

    void accept() override;  ///< makes the package
    void reject() override;  ///< cancels the making; closes when there is none

  private:
    [[nodiscard]] QString root() const;
    void show_drives();
    void show_target();
    void set_running(bool on);

    Workbench& workbench_;
    std::function<QList<MultimediaDrive>()> drives_;
    std::function<bool()> prepare_;
    QLabel* target_;
    QComboBox* drive_;
    QProgressBar* progress_;
    bool running_ = false;
    bool cancelled_ = false;
};

}  // namespace pondera
