// How the publishing dialogs connect to a server, and leave it.

#include <QtWidgets>

#include <utility>

#include "publish/connection/ensure_connected.h"
#include "publish/ftp/host_memory.h"
#include "publish/ftp/login_group.h"
#include "publish/ftp/plain_words.h"
#include "publish/ftp/publish_form.h"
#include "publish/ftp/publish_options.h"
#include "publish/ftp/remote_view.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

using namespace Qt::StringLiterals;

namespace pondera {

/// A session of its own for every connecting: it begins in the folder that the server gives.
void PublishForm::open_line() {
    executor_.reset();
    Inet1_ = std::make_unique<CurlTransfer>();
    Inet1_->setObjectName(u"Inet1"_s);
    executor_ = std::make_unique<CommandExecutor>(*Inet1_, highest_index_);
    connect(executor_.get(), &CommandExecutor::StatusChanged, this, &PublishForm::show_soon);
    connect(executor_.get(), &CommandExecutor::Executing, this, [this](const QString& command, int pending) {
        command_ = command;
        pending_ = pending;
        show_soon();
    });
    connect(executor_.get(), &CommandExecutor::Answered, this, [this](const QString& command) {
        if (command == u"DIR" && Inet1_->ResponseCode() == kFine) riempi_lista();
    });
    connect(executor_.get(), &CommandExecutor::Ended, this, [this](const TaskEnd& end) {
        const auto then = std::exchange(then_, {});
        const auto otherwise = std::exchange(failed_, {});
        if (end.how == TaskEnd::How::kDone) return then();
        otherwise ? otherwise(end) : failed(end);
    });
    Inet1_->set_host(session_.host);
    Inet1_->set_user(session_.user);
    Inet1_->set_password(session_.password);
    const HostMemory memory(workbench_.settings(), session_.host);
    // What was protected once stays so, unless the person says otherwise: the password must not go out before.
    expects_protection_ = session_.protection == ProtectionWish::kWhenOffered && memory.was_protected();
    Inet1_->set_protection(expects_protection_ ? ProtectionWish::kRequired : session_.protection);
    Inet1_->trust_certificate(memory.trusted());
    Inet1_->set_local_root(workbench_.website_folder());
}

void PublishForm::close_line() {
    executor_.reset();
    Inet1_.reset();
    connection_->show_status(u"Disconnected"_s);
    remote_->show_names({}, {});
    hint({});
    show_situation();
}

/// Connects to the server and goes to the Website's folder.
void PublishForm::connetti() {
    if (working_) return;
    const std::optional<ServerLogin> typed = login();
    if (!typed || !ensure_connected(workbench_, typed->host)) return;
    session_ = *typed;
    open_line();
    start_work(u"Connecting.."_s);
    try_connecting();
}

void PublishForm::try_connecting() {
    connecting_ = connect_task();
    run(
        connecting_, [this] { connected(); }, [this](const TaskEnd& end) { connection_failed(end); });
}

void PublishForm::connection_failed(const TaskEnd& end) {
    not_connected();
    if (end.how == TaskEnd::How::kCancelled) return finish_work(u"Stopped."_s, Tone::kPlain);
    if (end.code == kCertificateNotTrusted && trusts_server()) return try_connecting();
    if (end.code == kNoProtection && expects_protection_ && accepts_open_line()) return try_connecting();
    finish_work(plain_words(end), Tone::kBad);
    login_fields_->point_out(end.code);
}

bool PublishForm::trusts_server() {
    const LineProtection shown = Inet1_->Protection();
    HostMemory memory(workbench_.settings(), session_.host);
    const QByteArray before = memory.trusted();
    const Message question{.text = trust_question(session_.host, shown, before),
                           .icon = before.isEmpty() ? MessageIcon::kExclamation : MessageIcon::kCritical,
                           .answers = {Answer::kNo, Answer::kYes},
                           .title = {}};
    if (workbench_.prompts().message(question) != Answer::kYes || stop_) return false;
    memory.trust(shown.fingerprint);
    Inet1_->trust_certificate(shown.fingerprint);
    return true;
}

/// Asks about a server that offers no protection any more.
bool PublishForm::accepts_open_line() {
    const Message question{.text = open_line_question(session_.host),
                           .icon = MessageIcon::kCritical,
                           .answers = {Answer::kNo, Answer::kYes},
                           .title = {}};
    if (workbench_.prompts().message(question) != Answer::kYes || stop_) return false;
    HostMemory(workbench_.settings(), session_.host).set_protected(false);
    expects_protection_ = false;
    Inet1_->set_protection(session_.protection);
    return true;
}

std::shared_ptr<ConnectTask> PublishForm::connect_task() {
    return std::make_shared<ConnectTask>(session_.way);
}

void PublishForm::connected() {
    remote_folder_ = connecting_->remote_folder();
    present_ = connecting_->present();
    listing_.reset();
    site_ = {};
    if (connecting_->listed()) listing_ = site_ = connecting_->listing();
    HostMemory memory(workbench_.settings(), session_.host);
    if (const LineProtection& line = Inet1_->Protection(); line.encrypted && line.files_encrypted)
        memory.set_protected(true);
    const QString known = memory.address(remote_folder_);
    if (!options_->has_typed_address()) options_->set_address(known.isEmpty() ? suggested_address() : known);
    if (present_)
        return finish_work(u"The Website goes to the folder %1."_s.arg(session_.way.join(u'/')), Tone::kPlain);
    finish_without_folder();
}

void PublishForm::finish_without_folder() {
    remote_->show_names({}, {});
    finish_work(u"The folder %1 is not on the server yet, which is all right. It will be made when you publish."_s.arg(
                    session_.way.join(u'/')),
                Tone::kPlain);
}

}  // namespace pondera
