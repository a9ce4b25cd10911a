#pragma once

#include <QDialog>

#include "publish/sending/send_task.h"

namespace pondera {

/// Shows the files that a server refused, each with the server's words.
class Frm_Rifiutati : public QDialog {
    Q_OBJECT

  public:
    /// `what` tells what could not be done with them.
    Frm_Rifiutati(const QString& what, const QList<RefusedFile>& files, QWidget* parent);
};

}  // namespace pondera
