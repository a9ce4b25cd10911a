#include "publish/ftp/frm_connessione_remota2.h"

#include <QtWidgets>

#include <array>

#include "base/roots.h"
#include "publish/ftp/field_pieces.h"
#include "publish/ftp/host_memory.h"
#include "publish/ftp/login_group.h"
#include "publish/ftp/remote_site.h"
#include "workbench/prompts.h"
#include "workbench/refilled_box.h"
#include "workbench/workbench.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kHighestIndex = 5000;
const QString kLastHost = u"Publish/Last Host"_s;
const QString kSftp = u"sftp://"_s;

/// The choices of protection, in their order. SFTP is a prefix of the host, and none of the control's wishes.
enum Protection { kWhenOffered, kAlways, kOverSsh, kOpen };
constexpr std::array kCaptions{"FTP, protected when the server offers it"_L1, "FTP, always protected (TLS)"_L1,
                               "SFTP (SSH)"_L1, "FTP, not protected"_L1};

ProtectionWish wish_of(int choice) {
    return choice == kAlways ? ProtectionWish::kRequired
           : choice == kOpen ? ProtectionWish::kNone
                             : ProtectionWish::kWhenOffered;
}

int choice_of(ProtectionWish wish) {
    return wish == ProtectionWish::kRequired ? kAlways : wish == ProtectionWish::kNone ? kOpen : kWhenOffered;
}

bool is_sftp(const QString& host) {
    return host.trimmed().startsWith(kSftp, Qt::CaseInsensitive);
}

}  // namespace

Frm_Connessione_Remota2::Frm_Connessione_Remota2(Workbench& workbench)
    : PublishForm(workbench, u"Frm_Connessione_Remota2"_s, kHighestIndex),
      login_(new LoginGroup(u"Server"_s, new RefilledBox([this] { fill_hosts(); }), connect_button(),
                            u"Address, user name, password and folder are kept in a file that only you can read"_s)),
      txtSito_(new QLineEdit),
      protection_(new QComboBox),
      folder_note_(note_label(u"folder_note"_s)) {
    make_fields();
    build(login_);
    fill_hosts();
    point_out_unfinished({});
    const QString last = workbench.settings().value(kLastHost).toString();
    if (ftp_hosts(workbench.roots()).contains(last)) login_->Nome_Host().setCurrentText(last);
    show_folder_note();
    login_->Nome_Host().setFocus();
}

void Frm_Connessione_Remota2::make_fields() {
    login_->Nome_Host().lineEdit()->setPlaceholderText(u"for example ftp.myshop.org"_s);
    txtSito_->setObjectName(u"txtSito"_s);
    txtSito_->setPlaceholderText(workbench().website());
    folder_note_->setMinimumHeight(2 * folder_note_->fontMetrics().lineSpacing());
    folder_note_->setAlignment(Qt::AlignTop);
    protection_->setObjectName(u"cboProtection"_s);
    for (const QLatin1StringView caption : kCaptions) protection_->addItem(caption);
    login_->add_row(u"F&older"_s, txtSito_);
    login_->add_row({}, folder_note_);
    login_->add_row(u"Protect&ion"_s, protection_);

    connect(&login_->Nome_Host(), &QComboBox::currentTextChanged, this, &Frm_Connessione_Remota2::follow_host);
    connect(txtSito_, &QLineEdit::textChanged, this, &Frm_Connessione_Remota2::show_folder_note);
    connect(protection_, &QComboBox::activated, this, &Frm_Connessione_Remota2::choose_protection);
    connect(&login_->chkSalvaDati(), &QCheckBox::clicked, this, [this] { remembered_ = false; });
    connect(login_, &LoginGroup::keep_asked, this, &Frm_Connessione_Remota2::save_data);
    connect(login_, &LoginGroup::forget_asked, this, &Frm_Connessione_Remota2::delete_data);
}

FtpLogin Frm_Connessione_Remota2::fields() const {
    return {.host = login_->Nome_Host().currentText(),
            .user = login_->user_id().text(),
            .password = login_->password().text(),
            .site = txtSito_->text()};
}

void Frm_Connessione_Remota2::fill_hosts() {
    const QSignalBlocker quiet(login_->Nome_Host());
    const QString typed = login_->Nome_Host().currentText();
    login_->Nome_Host().clear();
    login_->Nome_Host().addItems(ftp_hosts(workbench().roots()));
    login_->Nome_Host().setCurrentIndex(-1);  // the keys down and up begin at the list's ends
    login_->Nome_Host().setCurrentText(typed);
}

/// A host that was chosen or typed whole brings its data.
void Frm_Connessione_Remota2::follow_host(const QString& host) {
    const bool known =
        !host.isEmpty() && login_->Nome_Host().findText(host, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0;
    if (known) load_host(host);
    if (known || remembered_) login_->chkSalvaDati().setChecked(known);
    remembered_ = known;
    if (is_sftp(host))
        protection_->setCurrentIndex(kOverSsh);
    else if (known)
        protection_->setCurrentIndex(choice_of(HostMemory(workbench().settings(), host).protection()));
    else if (protection_->currentIndex() == kOverSsh)
        protection_->setCurrentIndex(kWhenOffered);
    if (known) point_out_unfinished(host);
}

void Frm_Connessione_Remota2::load_host(const QString& host) {
    FtpLogin login = fields();
    if (const auto loaded = load_ftp_settings(ftp_settings_path(workbench().roots(), host), login); !loaded) {
        hint(fault_sentence(loaded.error()), Tone::kBad);
        return;
    }
    const QSignalBlocker quiet(login_->Nome_Host());
    login_->Nome_Host().setCurrentText(login.host);
    login_->user_id().setText(login.user);
    login_->password().setText(login.password);
    txtSito_->setText(login.site);
}

void Frm_Connessione_Remota2::save_data() {
    const FtpLogin login = fields();
    const QString path = ftp_settings_path(workbench().roots(), login.host);
    if (login_->keep(workbench().prompts(), path, login)) fill_hosts();
}

void Frm_Connessione_Remota2::delete_data() {
    const QString path = ftp_settings_path(workbench().roots(), login_->Nome_Host().currentText());
    if (!login_->forget(workbench().prompts(), path)) return;
    fill_hosts();
    login_->Nome_Host().setCurrentText({});
    for (QLineEdit* field : {&login_->user_id(), &login_->password(), txtSito_}) field->clear();
}

/// The choice of SFTP stands in the host itself, where it is saved with it.
void Frm_Connessione_Remota2::choose_protection(int choice) {
    const QString host = login_->Nome_Host().currentText();
    const bool sftp = is_sftp(host);
    if (choice == kOverSsh && !sftp)
        login_->Nome_Host().setCurrentText(kSftp + host.section(u"://"_s, -1));
    else if (choice != kOverSsh && sftp)
        login_->Nome_Host().setCurrentText(host.section(u"://"_s, 1));
    protection_->setCurrentIndex(choice);
}

void Frm_Connessione_Remota2::show_folder_note() {
    const auto way = way_to_site(txtSito_->text(), workbench().website());
    folder_note_->setText(
        !way ? way.error()
             : u"On the server: %1. For an exact folder begin with \"/\", as in /htdocs."_s.arg(way->join(u'/')));
}

std::optional<ServerLogin> Frm_Connessione_Remota2::login() {
    const FtpLogin typed = fields();
    if (typed.host.isEmpty()) {
        workbench().prompts().tell(u"Insert the name of the remote host you want to connect to."_s);
        login_->Nome_Host().setFocus();
        return std::nullopt;
    }
    const auto way = way_to_site(typed.site, workbench().website());
    if (!way) {
        workbench().prompts().tell(way.error());
        txtSito_->setFocus();
        return std::nullopt;
    }
    return ServerLogin{.host = typed.host,
                       .user = typed.user,
                       .password = typed.password,
                       .protection = wish_of(protection_->currentIndex()),
                       .way = *way};
}

void Frm_Connessione_Remota2::connected() {
    HostMemory(workbench().settings(), session().host).set_protection(wish_of(protection_->currentIndex()));
    if (login_->chkSalvaDati().isChecked()) {
        save_data();
        workbench().settings().setValue(kLastHost, session().host);
    }
    PublishForm::connected();
}

}  // namespace pondera
