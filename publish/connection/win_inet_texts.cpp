#include "publish/connection/win_inet_texts.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

struct NumberText {
    int number;
    QLatin1StringView text;
};

/// The texts as they are shown, blanks at their ends and the missing one in 12013 included.
constexpr std::array kTexts{
    NumberText{12001, "No more handles could be generated at this time"_L1},
    NumberText{12002, "The request has timed out."_L1},
    NumberText{12003, "Extended error returned from server."_L1},
    NumberText{12004, "An internal error has occurred."_L1},
    NumberText{12005, "URL is invalid."_L1},
    NumberText{12006, "URL scheme could not be recognized, or is not supported."_L1},
    NumberText{12007, "Server name could not be resolved."_L1},
    NumberText{12008, "Requested protocol could not be located."_L1},
    NumberText{12009, "A request to InternetQueryOption or InternetSetOption specified an invalid option value."_L1},
    NumberText{12010,
               "Length of an option supplied to InternetQueryOption or InternetSetOption is incorrect for the type "
               "of option specified."_L1},
    NumberText{12011, "The request option can not be set, only queried. "_L1},
    NumberText{12012, "The Win32 Internet support is being shutdown or unloaded."_L1},
    NumberText{12013,
               "Request to connect and login to an FTP server could not"
               "be completed because the supplied user name is incorrect."_L1},
    NumberText{12014,
               "Request to connect and login to an FTP server could not be completed because the supplied password "
               "is incorrect. "_L1},
    NumberText{12015, "Request to connect to and login to an FTP server failed."_L1},
    NumberText{12016, "Requested operation is invalid. "_L1},
    NumberText{12017,
               "Operation was cancelled, usually because the handle on which the request was operating was closed "
               "before the operation completed."_L1},
    NumberText{12018, "Type of handle supplied is incorrect for this operation."_L1},
    NumberText{12019,
               "Requested operation can not be carried out because the handle supplied is not in the correct "
               "state."_L1},
    NumberText{12020, "Request can not be made via a proxy."_L1},
    NumberText{12021, "A required registry value could not be located. "_L1},
    NumberText{12022, "A required registry value was located but is an incorrect type or has an invalid value."_L1},
    NumberText{12023, "Direct network access cannot be made at this time. "_L1},
    NumberText{12024, "An asynchronous request could not be made because a zero context value was supplied."_L1},
    NumberText{12025, "An asynchronous request could not be made because a callback function has not been set."_L1},
    NumberText{12026, "The required operation could not be completed because one or more requests are pending."_L1},
    NumberText{12027, "The format of the request is invalid."_L1},
    NumberText{12028, "The requested item could not be located."_L1},
    NumberText{12029, "The attempt to connect to the server failed."_L1},
    NumberText{12030, "The connection with the server has been terminated."_L1},
    NumberText{12031, "The connection with the server has been reset."_L1},
    NumberText{12036, "The request failed because the handle already exists."_L1},
};

}  // namespace

QString win_inet_text(int number) {
    const auto* found = std::ranges::find(kTexts, number, &NumberText::number);
    return found == kTexts.end() ? u"Error details not available."_s : QString(found->text);
}

}  // namespace pondera
