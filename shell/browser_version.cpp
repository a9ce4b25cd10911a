#include "shell/browser_version.h"

#include "shell/frm_update.h"
#include "workbench/prompts.h"

namespace pondera {

using namespace Qt::StringLiterals;

VersionVerdict test_browser_version(const QString& version) {
    const QString start = version.left(3);
    if (start == "5.5"_L1 || start == "6.0"_L1 || start == "7.0"_L1) return VersionVerdict::kSupported;
    const int major = version.section(u'.', 0, 0).toInt();
    return major >= 7 ? VersionVerdict::kTooNew : VersionVerdict::kOutOfDate;
}

bool browser_version_allows(const QString& version, Prompts& prompts) {
    switch (test_browser_version(version)) {
        case VersionVerdict::kSupported:
            return true;
        case VersionVerdict::kOutOfDate:
            prompts.message({u"The Internet Explorer version installed is out of date."_s,
                             MessageIcon::kCritical,
                             {Answer::kOk},
                             u"Attention!"_s});
            return false;
        case VersionVerdict::kTooNew: {
            frmUpdate form(nullptr);
            prompts.run(form);
            return false;
        }
    }
    return false;
}

}  // namespace pondera
