#include "publish/hosted/account_task.h"

#include <QFile>

#include <utility>

#include "base/files.h"
#include "base/text_file.h"
#include "publish/hosted/hosted_login.h"
#include "publish/transfer/transfer_command.h"

using namespace Qt::StringLiterals;

namespace pondera {

AccountTask::AccountTask(HostingService service, QString domain, QString password, QString copy)
    : service_(std::move(service)), domain_(std::move(domain)), password_(std::move(password)), copy_(std::move(copy)) {
}

AccountTask::~AccountTask() {
    remove_copy();
}

bool AccountTask::remove_copy() {
    return !QFile::exists(copy_) || QFile::remove(copy_);
}

void AccountTask::next_turn(CommandStack& stack, const QString& /*folder*/) {
    if (std::exchange(begun_, true)) return;
    // What replaces a private file is as private from its first byte on.
    if (!write_private_file(copy_, {})) {
        outcome_ = Outcome::kNoLocalCopy;
        return;
    }
    stack.push_in_running_order({command_text(u"CD"_s, service_.web_root), command_text(u"CD"_s, domain_),
                                 command_text(u"GET"_s, service_.account_file, copy_)});
}

void AccountTask::answered(const CommandAnswer& answer, CommandStack& stack) {
    const QString verb = answer.command.section(u' ', 0, 0);
    if (verb == u"CD") return enter(answer, stack);
    if (verb == u"GET") return check(answer, stack);
    if (answer.fine()) listing_ = answer.listing;
}

void AccountTask::enter(const CommandAnswer& answer, CommandStack& stack) {
    if (answer.fine()) {
        if (web_root_.isEmpty()) web_root_ = answer.folder;
        return;
    }
    stack.clear();
    outcome_ = web_root_.isEmpty() ? Outcome::kNoWebRoot : Outcome::kRefused;
    remove_copy();
}

void AccountTask::check(const CommandAnswer& answer, CommandStack& stack) {
    outcome_ = Outcome::kRefused;
    if (answer.fine()) {
        const auto account = read_text_file(copy_);
        if (!account)
            outcome_ = Outcome::kNoLocalCopy;
        else if (grants_entry(account->text, password_))
            outcome_ = Outcome::kAccepted;
    }
    remove_copy();
    if (outcome_ != Outcome::kAccepted) return;
    remote_folder_ = answer.folder;
    stack.push(u"DIR"_s);
}

}  // namespace pondera
