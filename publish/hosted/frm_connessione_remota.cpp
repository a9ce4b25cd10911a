#include "publish/hosted/frm_connessione_remota.h"

#include <QtWidgets>

#include "base/roots.h"
#include "publish/ftp/field_pieces.h"
#include "publish/ftp/host_memory.h"
#include "publish/ftp/login_group.h"
#include "publish/hosted/service_files.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kHighestIndex = 10'000;

}  // namespace

Frm_Connessione_Remota::Frm_Connessione_Remota(Workbench& workbench, HostingService service)
    : PublishForm(workbench, u"Frm_Connessione_Remota"_s, kHighestIndex),
      service_(std::move(service)),
      login_(new LoginGroup(u"Hosting service"_s, new QComboBox, connect_button(),
                            u"Kept in a file that only you can read; the sub-domain's password is not kept"_s)),
      txtDomain_(new QLineEdit),
      txtPassword_(password_line(u"txtPassword"_s)),
      address_note_(note_label(u"address_note"_s)) {
    setWindowTitle(u"Publish \"%1\" on the Hosted Domain"_s.arg(workbench.website()));
    make_fields();
    build(login_);
    if (const auto made = make_staging_folders(workbench.roots()); !made)
        hint(fault_sentence(made.error()), Tone::kBad);
    QFile::remove(account_copy_path(workbench.roots()));  // one that a program which ended in the middle left
    load_data();
    show_address();
    point_out_unfinished({});
    QLineEdit& user = login_->user_id();
    (user.text().isEmpty() ? &user : txtPassword_)->setFocus();
}

void Frm_Connessione_Remota::make_fields() {
    login_->Nome_Host().addItem(service_.typed_host());
    txtDomain_->setObjectName(u"txtDomain"_s);
    txtDomain_->setPlaceholderText(u"for example bakery"_s);
    address_note_->setMinimumHeight(address_note_->fontMetrics().lineSpacing());
    auto* new_domain = new QLabel(
        u"No sub-domain yet? <a href=\"%1\">Request one here</a>"_s.arg(service_.new_domain_page.toHtmlEscaped()));
    new_domain->setObjectName(u"lblNewDomain"_s);
    new_domain->setTextInteractionFlags(Qt::TextBrowserInteraction);
    new_domain->setOpenExternalLinks(true);
    login_->add_row(u"&Sub-domain"_s, txtDomain_);
    login_->add_row(u"&Its password"_s, txtPassword_);
    login_->add_row({}, address_note_);
    login_->add_row({}, new_domain);

    connect(txtDomain_, &QLineEdit::textChanged, this, &Frm_Connessione_Remota::show_address);
    connect(login_, &LoginGroup::keep_asked, this, &Frm_Connessione_Remota::save_data);
    connect(login_, &LoginGroup::forget_asked, this, &Frm_Connessione_Remota::delete_data);
}

HostedLogin Frm_Connessione_Remota::fields() const {
    return {.server = {.host = login_->Nome_Host().currentText(),
                       .user = login_->user_id().text(),
                       .password = login_->password().text(),
                       .site = service_.domain_of(txtDomain_->text())},
            .domain_password = txtPassword_->text()};
}

void Frm_Connessione_Remota::show_fields(const HostedLogin& login) {
    login_->Nome_Host().setCurrentText(login.server.host);
    login_->user_id().setText(login.server.user);
    login_->password().setText(login.server.password);
    txtDomain_->setText(login.server.site);
    txtPassword_->setText(login.domain_password);
}

void Frm_Connessione_Remota::load_data() {
    const QString path = hosted_settings_path(workbench().roots());
    if (!QFile::exists(path)) return;
    HostedLogin login = fields();
    if (const auto loaded = load_ftp_settings(path, login.server); !loaded)
        return hint(fault_sentence(loaded.error()), Tone::kBad);
    show_fields(login);
    login_->chkSalvaDati().setChecked(true);
}

void Frm_Connessione_Remota::save_data() {
    login_->keep(workbench().prompts(), hosted_settings_path(workbench().roots()), fields().server);
}

void Frm_Connessione_Remota::delete_data() {
    if (!login_->forget(workbench().prompts(), hosted_settings_path(workbench().roots()))) return;
    show_fields({.server = {.host = service_.typed_host()}});
}

void Frm_Connessione_Remota::show_address() {
    const QString domain = service_.domain_of(txtDomain_->text());
    address_note_->setText(domain.isEmpty() ? QString() : u"Visitors will go to %1"_s.arg(service_.address_of(domain)));
}

std::optional<ServerLogin> Frm_Connessione_Remota::login() {
    const HostedLogin typed = fields();
    if (const QString refusal = refusal_of_login(typed); !refusal.isEmpty()) {
        workbench().prompts().tell(refusal);
        QWidget* const field = typed.server.host.isEmpty()       ? static_cast<QWidget*>(&login_->Nome_Host())
                               : typed.server.user.isEmpty()     ? &login_->user_id()
                               : typed.server.site.isEmpty()     ? txtDomain_
                               : typed.domain_password.isEmpty() ? txtPassword_
                                                                 : txtDomain_;
        field->setFocus();
        return std::nullopt;
    }
    return ServerLogin{.host = typed.server.host,
                       .user = typed.server.user,
                       .password = typed.server.password,
                       .way = {service_.web_root, typed.server.site}};
}

std::shared_ptr<ConnectTask> Frm_Connessione_Remota::connect_task() {
    const HostedLogin typed = fields();
    inet().set_local_root(workbench().roots().websites());
    account_ = std::make_shared<AccountTask>(service_, typed.server.site, typed.domain_password,
                                             account_copy_path(workbench().roots()));
    return account_;
}

void Frm_Connessione_Remota::drop_account_copy() {
    if (!account_->remove_copy()) cancella_file(account_copy_path(workbench().roots()));
}

/// The account file was asked for.
void Frm_Connessione_Remota::connected() {
    drop_account_copy();
    if (account_->outcome() != AccountTask::Outcome::kAccepted) return refuse();
    inet().set_local_root(workbench().website_folder());
    if (login_->chkSalvaDati().isChecked()) save_data();
    PublishForm::connected();
}

void Frm_Connessione_Remota::refuse() {
    const bool by_server = inet().ResponseCode() == kServerAnsweredError;
    const QString said = by_server ? u"\nThe server says: "_s + server_words() : QString();
    finish_work({}, Tone::kBad);
    close_line();
    switch (account_->outcome()) {
        case AccountTask::Outcome::kNoWebRoot:
            hint(u"This server is not the one of the hosting service: it has no folder \"%1\"."_s.arg(
                     service_.web_root) +
                     said,
                 Tone::kBad);
            break;
        case AccountTask::Outcome::kNoLocalCopy:
            hint(u"The file %1 cannot be written or read."_s.arg(account_copy_path(workbench().roots())), Tone::kBad);
            break;
        default:
            workbench().prompts().tell(u"Incorrected data"_s);
            hint(u"Look whether the sub-domain and its password are as the service gave them to you."_s + said,
                 Tone::kBad);
            txtPassword_->setFocus();
            txtPassword_->selectAll();
    }
}

QStringList Frm_Connessione_Remota::verified_folders() const {
    return {u"img"_s, u"video"_s, u"audio"_s};
}

EmptyTask::Spared Frm_Connessione_Remota::spared() const {
    return [own = service_.account_file](const RemoteEntry& entry) { return belongs_to_service(entry.name, own); };
}

QString Frm_Connessione_Remota::suggested_address() const {
    return service_.address_of(fields().server.site);
}

QStringList Frm_Connessione_Remota::shown_names(const RemoteListing& listing) const {
    return hosted_listing(listing, service_.account_file);
}

/// A file of the Website must never replace one of the service: without its account file the sub-domain is lost.
QString Frm_Connessione_Remota::refusal_to_send(const QString& only) const {
    QStringList names = names_of_service(workbench().website_folder(), service_.account_file);
    if (!only.isEmpty() && !names.contains(only)) return {};
    return names.isEmpty() ? QString()
                           : u"The hosting service needs these names for files of its own:\n\n%1\n\nDelete them from "
                             "the Website, or give them other names."_s.arg(names.join(u'\n'));
}

}  // namespace pondera
