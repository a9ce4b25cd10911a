#include "publish/ftp/publish_form.h"

#include <QtWidgets>

#include <tuple>

#include "publish/connection/cwininet_connection.h"
#include "publish/connection/machine_connection.h"
#include "publish/ftp/field_pieces.h"
#include "publish/ftp/host_memory.h"
#include "publish/ftp/login_group.h"
#include "publish/ftp/plain_words.h"
#include "publish/ftp/publish_options.h"
#include "publish/ftp/remote_site.h"
#include "publish/ftp/remote_view.h"
#include "publish/ftp/transfer_view.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr QSize kSize(940, 640);
const QString kConnect = u"&Connect"_s;
const QString kDisconnect = u"Dis&connect"_s;
constexpr std::chrono::milliseconds kBetweenNudges{1000};
constexpr std::chrono::milliseconds kBetweenLooks{250};
constexpr qint64 kBetweenStates = 50;  // milliseconds

/// `work` in an area that scrolls where the screen is too small for it, and follows the keyboard.
QScrollArea* scrolling(QWidget* work) {
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(work);
    QObject::connect(qApp, &QApplication::focusChanged, area, [area](const QWidget*, QWidget* now) {
        if (now && area->isAncestorOf(now)) area->ensureWidgetVisible(now);
    });
    return area;
}

/// Says that Enter presses a button or does not; also of one that only has the focus, which would lose it with that.
void make_default(QPushButton& button, bool is_default) {
    button.setDefault(false);
    button.setDefault(is_default);
}

}  // namespace

PublishForm::PublishForm(Workbench& workbench, const QString& name, int highest_index)
    : QDialog(workbench.window()),
      workbench_(workbench),
      highest_index_(highest_index),
      connect_(new QPushButton),
      connection_(new ConnectionView),
      options_(new PublishOptions),
      remote_(new RemoteView),
      transfer_(new TransferView),
      link_(new QLabel) {
    setObjectName(name);
    setWindowTitle(u"Publish \"%1\" on the Internet"_s.arg(workbench.website()));
    connect_->setObjectName(u"Collegati"_s);
    connect_->setText(kDisconnect);
    connect_->setMinimumWidth(connect_->sizeHint().width());
    link_->setObjectName(u"lblWebsite"_s);
    link_->setTextInteractionFlags(Qt::TextBrowserInteraction);
    link_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    connect(link_, &QLabel::linkActivated, this, &PublishForm::open_website);
    connect(connect_, &QPushButton::clicked, this, [this] { is_connected() ? close_line() : connetti(); });
    connect(options_, &PublishOptions::PublishAsked, this, [this] { publish({}); });
    connect(remote_, &RemoteView::RefreshAsked, this, &PublishForm::refresh);
    connect(remote_, &RemoteView::FileAsked, this, &PublishForm::Apri_File_Dialogo);
    connect(remote_, &RemoteView::EmptyingAsked, this, &PublishForm::empty_server);
    connect(transfer_, &TransferView::Stopped, this, &PublishForm::stop);
    Timer1_.setInterval(kBetweenNudges);
    Timer2_.setInterval(kBetweenLooks);
    connect(&Timer1_, &QTimer::timeout, this, [this] {
        if (executor_) executor_->step();
    });
    connect(&Timer2_, &QTimer::timeout, this, [this] {
        show_live();
        Aggiorna_Contatore();
    });
}

PublishForm::~PublishForm() {
    executor_.reset();
    if (publication_) std::ignore = publication_->close();
}

void PublishForm::build(LoginGroup* fields) {
    login_fields_ = fields;
    auto* help = plain_button(u"cmdHelp"_s, u"&Help"_s);
    auto* cancel = plain_button(u"cmdAnnulla"_s, u"Cancel"_s);
    auto* close = plain_button(u"OKButton"_s, u"C&lose"_s);
    connect(help, &QPushButton::clicked, this, [this] {
        workbench_.show_help({u"/_HELP/_6_File Send Web.htm"_s, u"Help - Publish on the Internet"_s});
    });
    connect(cancel, &QPushButton::clicked, this, &PublishForm::reject);
    connect(close, &QPushButton::clicked, this, [this] { leave(u"CLOSE"_s); });

    auto* bottom = new QHBoxLayout;
    bottom->setSpacing(8);
    bottom->addWidget(link_, 1);
    bottom->addWidget(help);
    bottom->addWidget(cancel);
    bottom->addWidget(close);
    bottom->setContentsMargins(16, 0, 16, 14);
    auto* work = new QWidget;
    auto* grid = new QGridLayout(work);
    grid->setContentsMargins(16, 14, 16, 10);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(10);
    grid->addWidget(fields, 0, 0);
    grid->addWidget(connection_, 0, 1);
    grid->addWidget(options_, 1, 0);
    grid->addWidget(remote_, 1, 1);
    grid->addWidget(transfer_, 2, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(scrolling(work), 1);
    layout->addLayout(bottom);
    resize(kSize);
    show_situation();
}

void PublishForm::hint(const QString& text, Tone tone) {
    connection_->show_hint(text, tone);
}

void PublishForm::point_out_unfinished(const QString& host) {
    const bool unfinished = host.isEmpty() ? PublicationRecord::was_interrupted(workbench_.website_folder())
                                           : HostMemory(workbench_.settings(), host).incomplete(workbench_.website());
    if (!unfinished) return;
    options_->choose_partial();
    hint(
        u"The last publication did not come to its end. Connect, and publish \"Only what changed\": it goes on where it stopped."_s,
        Tone::kBad);
}

/// What can be done next: the default button and the fields follow it.
void PublishForm::show_situation() {
    const bool connected = is_connected();
    connect_->setText(connected ? kDisconnect : kConnect);
    connect_->setEnabled(!working_);
    login_fields_->set_fields_enabled(!working_ && !connected);
    make_default(options_->button(), connected && !working_);
    make_default(*connect_, !connected && !working_);
    transfer_->set_running(working_);
    if (!working_ && !connected) connection_->show_no_connection();
}

bool PublishForm::may_start() {
    if (!working_ && is_connected()) return true;
    workbench_.prompts().tell(u"Connecting before or wait for the end of the operations"_s);
    return false;
}

void PublishForm::start_work(const QString& stage) {
    working_ = true;
    stop_ = false;
    stage_ = stage;
    command_.clear();
    pending_ = 0;
    link_->clear();
    hint({});
    show_situation();
    transfer_->show_stage(stage);
    transfer_->show_steps(0, 0);
    Timer1_.start();
    Timer2_.start();
}

void PublishForm::finish_work(const QString& text, Tone tone) {
    // Closing the publication may take a busy disk seconds: the state shown meanwhile is the last one.
    show_live();
    Timer1_.stop();
    Timer2_.stop();
    fetching_.reset();
    sending_.reset();
    emptying_.reset();
    close_publication();
    working_ = false;
    show_live();
    show_situation();
    hint(text, tone);
    if (!closing_.isEmpty()) close_now();
}

void PublishForm::run(std::shared_ptr<RemoteTask> task, std::function<void()> then,
                      std::function<void(const TaskEnd&)> failed) {
    then_ = std::move(then);
    failed_ = std::move(failed);
    executor_->run(std::move(task));
}

void PublishForm::failed(const TaskEnd& end) {
    const bool stopped = end.how == TaskEnd::How::kCancelled;
    QString text = stopped ? u"Stopped."_s : plain_words(end);
    if (sending_) text += u" What has arrived is not sent a second time."_s;
    if (stopped && sending_) text += u" Connect and publish again to go on."_s;
    if (stopped && emptying_) text += u" What was deleted until then is gone."_s;
    finish_work(text, stopped ? Tone::kPlain : Tone::kBad);
}

void PublishForm::stop() {
    stop_ = true;
    if (executor_) executor_->cancel();
}

void PublishForm::reject() {
    leave(u"CANCEL"_s);
}

void PublishForm::leave(const QString& result) {
    if (working_ &&
        !workbench_.prompts().really(u"The server is still being worked with. Do you want to stop that and close?"_s))
        return;
    closing_ = result;
    if (!working_) return close_now();
    stop();
}

void PublishForm::close_now() {
    closed_by_ = closing_;
    done(closed_by_ == u"CLOSE" ? Accepted : Rejected);
}

/// Shows the state and the command at work, unless that was done a moment ago: thousands of commands would cost more
/// time to show than to do.
void PublishForm::show_soon() {
    if (!shown_.isValid() || shown_.elapsed() >= kBetweenStates) show_live();
}

void PublishForm::show_live() {
    shown_.start();
    if (!executor_) return;
    connection_->show_status(executor_->status());
    if (!Inet1_->RemoteFolder().isEmpty()) connection_->show_protection(Inet1_->Protection());
    if (!working_) return;
    transfer_->show_command(shown_command(command_, publication_ ? publication_->staging_folder() : QString()));
    const QString waiting = waiting_text(pending_);
    transfer_->show_stage(waiting.isEmpty() ? stage_ : waiting);
}

QStringList PublishForm::verified_folders() const {
    return {u"img"_s, u"audio"_s};
}

QString PublishForm::suggested_address() const {
    return likely_web_address(session_.host, session_.way.join(u'/'));
}

QStringList PublishForm::shown_names(const RemoteListing& listing) const {
    return listed_names(listing);
}

QString PublishForm::server_words() const {
    MachineConnection machine(workbench_.settings(), {}, [this]() -> std::optional<QString> {
        if (Inet1_->ResponseCode() != kServerAnsweredError) return std::nullopt;
        return Inet1_->ResponseInfo();
    });
    return CWinInetConnection(machine).GetWinApiDesc(kServerAnsweredError);
}

/// Fills the list with the last listing.
void PublishForm::riempi_lista() {
    if (Inet1_) remote_->show_names(Inet1_->RemoteFolder(), shown_names(Inet1_->Listing()));
}

}  // namespace pondera
