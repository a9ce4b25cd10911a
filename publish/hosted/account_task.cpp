#include "publish/hosted/account_task.h"

#include <QFile>

#include <utility>

#include "base/files.h"
#include "base/text_file.h"
#include "publish/hosted/hosted_login.h"
#include "publish/transfer/transfer_command.h"

using namespace Qt::StringLiterals;

namespace pondera {

AccountTask::AccountTask(const HostingService& service, const QString& domain, QString password, QString copy)
    : ConnectTask({service.web_root, domain}),
      account_file_(service.account_file),
      password_(std::move(password)),
      copy_(std::move(copy)) {
}

AccountTask::~AccountTask() {
    remove_copy();
}

bool AccountTask::remove_copy() {
    return !QFile::exists(copy_) || QFile::remove(copy_);
}

void AccountTask::next_turn(CommandStack& stack, const QString& folder) {
    if (outcome_ != Outcome::kOpen) return;
    // What replaces a private file is as private from its first byte on.
    if (write_private_file(copy_, {}))
        ConnectTask::next_turn(stack, folder);
    else
        outcome_ = Outcome::kNoLocalCopy;
}

void AccountTask::answered(const CommandAnswer& answer, CommandStack& stack) {
    if (answer.command.startsWith(u"GET ")) {
        check(answer);
        remove_copy();
        if (outcome_ != Outcome::kAccepted) stack.clear();
        return;
    }
    ConnectTask::answered(answer, stack);
    if (answer.command.startsWith(u"CD ")) enter(answer, stack);
}

void AccountTask::enter(const CommandAnswer& answer, CommandStack& stack) {
    if (!answer.fine()) {
        outcome_ = has_web_root_ ? Outcome::kRefused : Outcome::kNoWebRoot;
        remove_copy();
    }
    has_web_root_ = answer.fine();
    if (present()) stack.push(command_text(u"GET"_s, account_file_, copy_));
}

void AccountTask::check(const CommandAnswer& answer) {
    outcome_ = Outcome::kRefused;
    if (!answer.fine()) return;
    const auto account = read_text_file(copy_);
    if (!account)
        outcome_ = Outcome::kNoLocalCopy;
    else if (grants_entry(account->text, password_))
        outcome_ = Outcome::kAccepted;
}

}  // namespace pondera
