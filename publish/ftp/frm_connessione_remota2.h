#pragma once

#include "publish/ftp/ftp_settings.h"
#include "publish/ftp/publish_form.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace pondera {

/// Publishes the open Website to an FTP server of the person's choice.
class Frm_Connessione_Remota2 : public PublishForm {
    Q_OBJECT

  public:
    explicit Frm_Connessione_Remota2(Workbench& workbench);

  protected:
    [[nodiscard]] std::optional<ServerLogin> login() override;
    void connected() override;

  private:
    void make_fields();
    [[nodiscard]] FtpLogin fields() const;
    void fill_hosts();
    void load_host(const QString& host);
    void save_data();
    void delete_data();
    void choose_protection(int choice);
    void follow_host(const QString& host);
    void show_folder_note();

    LoginGroup* login_;
    QLineEdit* txtSito_;
    QComboBox* protection_;
    bool remembered_ = false;  ///< the host's settings file has set the check of chkSalvaDati
    QLabel* folder_note_;
};

}  // namespace pondera
