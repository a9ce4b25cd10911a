#pragma once

#include "publish/ftp/publish_form.h"
#include "publish/hosted/account_task.h"
#include "publish/hosted/hosted_login.h"

class QLabel;
class QLineEdit;

namespace pondera {

/// Publishes the open Website to a sub-domain of the hosting service.
class Frm_Connessione_Remota : public PublishForm {
    Q_OBJECT

  public:
    Frm_Connessione_Remota(Workbench& workbench, HostingService service);

  protected:
    [[nodiscard]] std::optional<ServerLogin> login() override;
    [[nodiscard]] std::shared_ptr<ConnectTask> connect_task() override;
    void not_connected() override { drop_account_copy(); }
    void connected() override;
    [[nodiscard]] QStringList verified_folders() const override;
    [[nodiscard]] EmptyTask::Spared spared() const override;
    [[nodiscard]] QString suggested_address() const override;
    [[nodiscard]] QStringList shown_names(const RemoteListing& listing) const override;
    [[nodiscard]] QString refusal_to_send(const QString& only) const override;

  private:
    void make_fields();
    [[nodiscard]] HostedLogin fields() const;
    void show_fields(const HostedLogin& login);
    void load_data();
    void save_data();
    void delete_data();
    void show_address();
    void drop_account_copy();
    void refuse();

    HostingService service_;
    LoginGroup* login_;
    QLineEdit* txtDomain_;
    QLineEdit* txtPassword_;
    QLabel* address_note_;
    std::shared_ptr<AccountTask> account_;
};

}  // namespace pondera
