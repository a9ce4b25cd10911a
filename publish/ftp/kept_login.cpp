#include "publish/ftp/kept_login.h"

#include <QCheckBox>
#include <QLineEdit>

#include "publish/ftp/ftp_settings.h"
#include "workbench/prompts.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

const QString kIncomplete = u"Insert all required data"_s;

}  // namespace

bool keep_login(Prompts& prompts, const QString& path, const FtpLogin& login, QLineEdit& user_field, QCheckBox& box) {
    if (login.host.isEmpty() || login.user.isEmpty()) {
        prompts.tell(kIncomplete);
        if (!login.host.isEmpty()) user_field.setFocus();
        return false;
    }
    const FileResult<void> saved = save_ftp_settings(path, login);
    if (saved) return true;
    prompts.tell(fault_sentence(saved.error()), MessageIcon::kCritical);
    box.setChecked(false);
    return false;
}

bool forget_login(Prompts& prompts, const QString& path, const QString& host, QCheckBox& box) {
    bool agreed = false;
    if (host.isEmpty()) {
        prompts.tell(kIncomplete);
    } else {
        const QList<Answer> answers{Answer::kNo, Answer::kYes, Answer::kCancel};
        agreed = prompts.really(u"Are you sure you want to definitely delete the FTP data?"_s, answers);
    }
    if (agreed)
        if (const FileResult<void> deleted = delete_ftp_settings(path); !deleted)
            prompts.tell(fault_sentence(deleted.error()), MessageIcon::kCritical);
    box.setChecked(false);
    return agreed;
}

}  // namespace pondera
