#pragma once

#include <QDialog>

class QDialogButtonBox;

namespace pondera {

/// Tells that there is no connection, or that the program is off line, and asks how to go on.
class frmReconnect : public QDialog {
    Q_OBJECT

  public:
    enum class Situation { kNotConnected, kOffline };

    frmReconnect(QWidget* parent, Situation situation, const QString& host);

    /// "RETRY" (look for the connection again), "CONTINUE" (connect all the same), "ONLINE" (leave the off line mode)
    /// or "CANCEL", which `cmdCancel`, `cmdAnnulla` and closing the window give.
    [[nodiscard]] QString result_text() const { return result_; }

  private:
    void add_button(QDialogButtonBox& buttons, const QString& name, const QString& caption, const QString& result);

    QString result_ = QStringLiteral("CANCEL");
};

}  // namespace pondera
