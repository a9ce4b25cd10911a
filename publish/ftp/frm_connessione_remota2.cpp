#include "publish/ftp/frm_connessione_remota2.h"

#include <QtWidgets>

#include <array>

#include "base/roots.h"
#include "publish/ftp/field_pieces.h"
#include "publish/ftp/host_memory.h"
#include "publish/ftp/kept_login.h"
#include "publish/ftp/remote_site.h"
#include "workbench/prompts.h"
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

/// A list that is filled anew whenever it opens.
class HostBox : public QComboBox {
  public:
    explicit HostBox(std::function<void()> fill) : fill_(std::move(fill)) {}
    void showPopup() override {
        fill_();
        QComboBox::showPopup();
    }

  private:
    std::function<void()> fill_;
};

}  // namespace

Frm_Connessione_Remota2::Frm_Connessione_Remota2(Workbench& workbench)
    : PublishForm(workbench, u"Frm_Connessione_Remota2"_s, kHighestIndex),
      Nome_Host_(new HostBox([this] { fill_hosts(); })),
      user_id_(new QLineEdit),
      password_(password_line(u"password"_s)),
      txtSito_(new QLineEdit),
      protection_(new QComboBox),
      chkSalvaDati_(new QCheckBox(u"Re&member on this computer"_s)),
      chkDeleteData_(new QCheckBox(u"For&get these data"_s)),
      folder_note_(note_label(u"folder_note"_s)) {
    build(make_fields());
    fill_hosts();
    point_out_unfinished({});
    const QString last = workbench.settings().value(kLastHost).toString();
    if (ftp_hosts(workbench.roots()).contains(last)) Nome_Host_->setCurrentText(last);
    show_folder_note();
    Nome_Host_->setFocus();
}

QGroupBox* Frm_Connessione_Remota2::make_fields() {
    Nome_Host_->setObjectName(u"Nome_Host"_s);
    Nome_Host_->setEditable(true);
    Nome_Host_->setInsertPolicy(QComboBox::NoInsert);
    // Completing what is selected, Return would bring the first host of the list and its password.
    Nome_Host_->setCompleter(nullptr);
    Nome_Host_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    Nome_Host_->lineEdit()->setPlaceholderText(u"for example ftp.myshop.org"_s);
    user_id_->setObjectName(u"user_id"_s);
    txtSito_->setObjectName(u"txtSito"_s);
    txtSito_->setPlaceholderText(workbench().website());
    protection_->setObjectName(u"cboProtection"_s);
    for (const QLatin1StringView caption : kCaptions) protection_->addItem(caption);
    chkSalvaDati_->setObjectName(u"chkSalvaDati"_s);
    chkSalvaDati_->setToolTip(u"Address, user name, password and folder are kept in a file that only you can read"_s);
    chkDeleteData_->setObjectName(u"chkDeleteData"_s);
    connect(Nome_Host_, &QComboBox::currentTextChanged, this, &Frm_Connessione_Remota2::follow_host);
    connect(txtSito_, &QLineEdit::textChanged, this, &Frm_Connessione_Remota2::show_folder_note);
    connect(protection_, &QComboBox::activated, this, &Frm_Connessione_Remota2::choose_protection);
    connect(chkSalvaDati_, &QCheckBox::clicked, this, [this](bool on) {
        remembered_ = false;
        if (on) save_data();
    });
    connect(chkDeleteData_, &QCheckBox::clicked, this, [this](bool on) {
        if (on) delete_data();
    });

    folder_note_->setMinimumHeight(2 * folder_note_->fontMetrics().lineSpacing());
    folder_note_->setAlignment(Qt::AlignTop);

    auto* group = new QGroupBox(u"Server"_s);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setVerticalSpacing(6);
    form->addRow(u"&Address"_s, Nome_Host_);
    form->addRow(u"&User name"_s, user_id_);
    form->addRow(u"Pass&word"_s, password_);
    form->addRow(u"F&older"_s, txtSito_);
    form->addRow(QString(), folder_note_);
    form->addRow(u"Protect&ion"_s, protection_);
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

FtpLogin Frm_Connessione_Remota2::fields() const {
    return {.host = Nome_Host_->currentText(),
            .user = user_id_->text(),
            .password = password_->text(),
            .site = txtSito_->text()};
}

void Frm_Connessione_Remota2::fill_hosts() {
    const QSignalBlocker quiet(Nome_Host_);
    const QString typed = Nome_Host_->currentText();
    Nome_Host_->clear();
    Nome_Host_->addItems(ftp_hosts(workbench().roots()));
    Nome_Host_->setCurrentIndex(-1);  // the keys down and up begin at the list's ends
    Nome_Host_->setCurrentText(typed);
}

/// A host that was chosen or typed whole brings its data.
void Frm_Connessione_Remota2::follow_host(const QString& host) {
    const bool known = !host.isEmpty() && Nome_Host_->findText(host, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0;
    if (known) load_host(host);
    if (known || remembered_) chkSalvaDati_->setChecked(known);
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
    const QSignalBlocker quiet(Nome_Host_);
    Nome_Host_->setCurrentText(login.host);
    user_id_->setText(login.user);
    password_->setText(login.password);
    txtSito_->setText(login.site);
}

void Frm_Connessione_Remota2::save_data() {
    const FtpLogin login = fields();
    const QString path = ftp_settings_path(workbench().roots(), login.host);
    if (keep_login(workbench().prompts(), path, login, *user_id_, *chkSalvaDati_)) fill_hosts();
}

void Frm_Connessione_Remota2::delete_data() {
    const QString host = Nome_Host_->currentText();
    const QString path = ftp_settings_path(workbench().roots(), host);
    if (!forget_login(workbench().prompts(), path, host, *chkDeleteData_)) return;
    fill_hosts();
    Nome_Host_->setCurrentText({});
    for (QLineEdit* field : {user_id_, password_, txtSito_}) field->clear();
    chkSalvaDati_->setChecked(false);
}

/// The choice of SFTP stands in the host itself, where it is saved with it.
void Frm_Connessione_Remota2::choose_protection(int choice) {
    const QString host = Nome_Host_->currentText();
    const bool sftp = is_sftp(host);
    if (choice == kOverSsh && !sftp)
        Nome_Host_->setCurrentText(kSftp + host.section(u"://"_s, -1));
    else if (choice != kOverSsh && sftp)
        Nome_Host_->setCurrentText(host.section(u"://"_s, 1));
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
        Nome_Host_->setFocus();
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

void Frm_Connessione_Remota2::set_login_enabled(bool enabled) {
    for (QWidget* field : std::initializer_list<QWidget*>{Nome_Host_, user_id_, password_, txtSito_, protection_,
                                                          chkSalvaDati_, chkDeleteData_})
        field->setEnabled(enabled);
}

void Frm_Connessione_Remota2::point_out(int code) {
    QLineEdit* const field = code == kPasswordRefused || code == kLoginFailed ? password_
                             : code == kUserRefused                           ? user_id_
                                                                              : Nome_Host_->lineEdit();
    field->setFocus();
    field->selectAll();
}

void Frm_Connessione_Remota2::connected() {
    HostMemory(workbench().settings(), session().host).set_protection(wish_of(protection_->currentIndex()));
    if (chkSalvaDati_->isChecked()) {
        save_data();
        workbench().settings().setValue(kLastHost, session().host);
    }
    PublishForm::connected();
}

}  // namespace pondera
