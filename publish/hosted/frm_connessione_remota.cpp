#include "publish/hosted/frm_connessione_remota.h"

#include <QtWidgets>

#include "base/roots.h"
#include "publish/ftp/field_pieces.h"
#include "publish/ftp/host_memory.h"
#include "publish/ftp/kept_login.h"
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
      Nome_Host_(new QComboBox),
      user_id_(new QLineEdit),
      password_(password_line(u"password"_s)),
      txtDomain_(new QLineEdit),
      txtPassword_(password_line(u"txtPassword"_s)),
      address_note_(note_label(u"address_note"_s)),
      chkSalvaDati_(new QCheckBox(u"Re&member on this computer"_s)),
      chkDeleteData_(new QCheckBox(u"For&get these data"_s)) {
    setWindowTitle(u"Publish \"%1\" on the Hosted Domain"_s.arg(workbench.website()));
    build(make_fields());
    if (const auto made = make_staging_folders(workbench.roots()); !made)
        hint(fault_sentence(made.error()), Tone::kBad);
    QFile::remove(account_copy_path(workbench.roots()));  // one that a program which ended in the middle left
    load_data();
    show_address();
    point_out_unfinished({});
    (user_id_->text().isEmpty() ? user_id_ : txtPassword_)->setFocus();
}

void Frm_Connessione_Remota::name_fields() {
    Nome_Host_->setObjectName(u"Nome_Host"_s);
    Nome_Host_->setEditable(true);
    Nome_Host_->setInsertPolicy(QComboBox::NoInsert);
    Nome_Host_->setCompleter(nullptr);
    Nome_Host_->addItem(service_.typed_host());
    Nome_Host_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    user_id_->setObjectName(u"user_id"_s);
    address_note_->setMinimumHeight(address_note_->fontMetrics().lineSpacing());
    txtDomain_->setObjectName(u"txtDomain"_s);
    txtDomain_->setPlaceholderText(u"for example bakery"_s);
    chkSalvaDati_->setObjectName(u"chkSalvaDati"_s);
    chkSalvaDati_->setToolTip(u"Kept in a file that only you can read; the sub-domain's password is not kept"_s);
    chkDeleteData_->setObjectName(u"chkDeleteData"_s);
    connect(txtDomain_, &QLineEdit::textChanged, this, &Frm_Connessione_Remota::show_address);
    connect(chkSalvaDati_, &QCheckBox::clicked, this, [this](bool on) {
        if (on) save_data();
    });
    connect(chkDeleteData_, &QCheckBox::clicked, this, [this](bool on) {
        if (on) delete_data();
    });
}

QGroupBox* Frm_Connessione_Remota::make_fields() {
    name_fields();
    auto* new_domain = new QLabel(
        u"No sub-domain yet? <a href=\"%1\">Request one here</a>"_s.arg(service_.new_domain_page.toHtmlEscaped()));
    new_domain->setObjectName(u"lblNewDomain"_s);
    new_domain->setTextInteractionFlags(Qt::TextBrowserInteraction);
    new_domain->setOpenExternalLinks(true);

    auto* group = new QGroupBox(u"Hosting service"_s);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->setVerticalSpacing(6);
    form->addRow(u"&Address"_s, Nome_Host_);
    form->addRow(u"&User name"_s, user_id_);
    form->addRow(u"Pass&word"_s, password_);
    form->addRow(u"&Sub-domain"_s, txtDomain_);
    form->addRow(u"&Its password"_s, txtPassword_);
    form->addRow(QString(), address_note_);
    form->addRow(QString(), new_domain);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(chkSalvaDati_);
    bottom->addWidget(chkDeleteData_);
    bottom->addStretch();
    bottom->addWidget(connect_button());
    auto* layout = new QVBoxLayout(group);
    layout->addLayout(form);
    layout->addStretch();
    layout->addLayout(bottom);
    return group;
}

HostedLogin Frm_Connessione_Remota::fields() const {
    return {.server = {.host = Nome_Host_->currentText(),
                       .user = user_id_->text(),
                       .password = password_->text(),
                       .site = service_.domain_of(txtDomain_->text())},
            .domain_password = txtPassword_->text()};
}

void Frm_Connessione_Remota::show_fields(const HostedLogin& login) {
    Nome_Host_->setCurrentText(login.server.host);
    user_id_->setText(login.server.user);
    password_->setText(login.server.password);
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
    chkSalvaDati_->setChecked(true);
}

void Frm_Connessione_Remota::save_data() {
    keep_login(workbench().prompts(), hosted_settings_path(workbench().roots()), fields().server, *user_id_,
               *chkSalvaDati_);
}

void Frm_Connessione_Remota::delete_data() {
    const QString path = hosted_settings_path(workbench().roots());
    if (!forget_login(workbench().prompts(), path, Nome_Host_->currentText(), *chkDeleteData_)) return;
    show_fields({.server = {.host = service_.typed_host()}});
    chkSalvaDati_->setChecked(false);
}

void Frm_Connessione_Remota::show_address() {
    const QString domain = service_.domain_of(txtDomain_->text());
    address_note_->setText(domain.isEmpty() ? QString() : u"Visitors will go to %1"_s.arg(service_.address_of(domain)));
}

std::optional<ServerLogin> Frm_Connessione_Remota::login() {
    const HostedLogin typed = fields();
    if (const QString refusal = refusal_of_login(typed); !refusal.isEmpty()) {
        workbench().prompts().tell(refusal);
        QWidget* const field = typed.server.host.isEmpty()       ? static_cast<QWidget*>(Nome_Host_)
                               : typed.server.user.isEmpty()     ? user_id_
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

void Frm_Connessione_Remota::set_login_enabled(bool enabled) {
    for (QWidget* field : std::initializer_list<QWidget*>{Nome_Host_, user_id_, password_, txtDomain_, txtPassword_,
                                                          chkSalvaDati_, chkDeleteData_})
        field->setEnabled(enabled);
}

void Frm_Connessione_Remota::point_out(int code) {
    QLineEdit* const field = code == kPasswordRefused || code == kLoginFailed ? password_
                             : code == kUserRefused                           ? user_id_
                                                                              : Nome_Host_->lineEdit();
    field->setFocus();
    field->selectAll();
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
    if (chkSalvaDati_->isChecked()) save_data();
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
