#pragma once

#include <QGroupBox>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

namespace pondera {

class Prompts;
struct FtpLogin;

/// The box with the fields of a login: those that every login has, the rows that a dialog adds to them, the two check
/// boxes that keep and forget the login, and the Connect button.
class LoginGroup : public QGroupBox {
    Q_OBJECT

  public:
    /// `host` and `connect_button` are the dialog's own; what `keep_tip` says stands in the tool tip of chkSalvaDati.
    LoginGroup(const QString& title, QComboBox* host, QPushButton* connect_button, const QString& keep_tip);

    /// Adds a field below the others, or without a caption something that only tells.
    void add_row(const QString& caption, QWidget* field);
    /// All fields can be changed or not; the Connect button is left alone.
    void set_fields_enabled(bool enabled);
    /// Brings the person to the field that a failed connection is about; `code` is the transfer control's.
    void point_out(int code);

    /// Writes a login to its settings file, as the person asked by chkSalvaDati. True when it is there; else the person
    /// was told why, with the focus in user_id when only the user is missing, and chkSalvaDati unchecked when it could
    /// not be written.
    bool keep(Prompts& prompts, const QString& path, const FtpLogin& login);
    /// Deletes the settings file of the host, as the person asked by chkDeleteData, which is unchecked in every case.
    /// True when they agreed, whether or not there was a file; chkSalvaDati is unchecked then.
    bool forget(Prompts& prompts, const QString& path);

    [[nodiscard]] QComboBox& Nome_Host() const { return *Nome_Host_; }
    [[nodiscard]] QLineEdit& user_id() const { return *user_id_; }
    [[nodiscard]] QLineEdit& password() const { return *password_; }
    [[nodiscard]] QCheckBox& chkSalvaDati() const { return *chkSalvaDati_; }

  signals:
    void keep_asked();
    void forget_asked();

  private:
    QComboBox* Nome_Host_;
    QLineEdit* user_id_;
    QLineEdit* password_;
    QCheckBox* chkSalvaDati_;
    QCheckBox* chkDeleteData_;
    QFormLayout* rows_;
    QList<QWidget*> fields_;
    QWidget* last_ = nullptr;  ///< that the Tab key reaches, of the rows
};

}  // namespace pondera
