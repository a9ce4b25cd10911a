#include "publish/connection/cwininet_connection.h"

#include "publish/connection/win_inet_texts.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kFirstLibraryNumber = 12001;
constexpr int kServersWords = 12003;

}  // namespace

ConnectionResult CWinInetConnection::SetGlobalOnline() {
    return checked(functions_.set_online(true), u"SetGlobalOnline"_s);
}

ConnectionResult CWinInetConnection::SetGlobalOffline() {
    return checked(functions_.set_online(false), u"SetGlobalOffline"_s);
}

ConnectionResult CWinInetConnection::GoOnline(const QString& strURL, quintptr hwndParentWindow) {
    return checked(functions_.go_online(strURL, hwndParentWindow), u"GoOnline"_s);
}

ConnectionResult CWinInetConnection::HangUp() {
    return checked(functions_.hang_up(), u"HangUp"_s);
}

ConnectionResult CWinInetConnection::Dial(const QString& strConnectionName) {
    return checked(functions_.dial(strConnectionName), u"Dial"_s);
}

ConnectionResult CWinInetConnection::AutodialHangup() {
    return checked(functions_.autodial_hang_up(), u"AutodialHangup"_s);
}

ConnectionResult CWinInetConnection::Autodial() {
    return checked(functions_.autodial(), u"Autodial"_s);
}

ConnectionResult CWinInetConnection::Refresh() {
    state_ = {};
    return checked(functions_.connected_state(state_), u"Refresh"_s);
}

QString CWinInetConnection::GetWinApiDesc(int lErrNumber) const {
    const QString said = lErrNumber == kServersWords ? functions_.last_response().value_or(QString()) : QString();
    return said.isEmpty() ? win_inet_text(lErrNumber) : said;
}

/// The error routine: nothing when the routine did well, or failed without a number.
ConnectionResult CWinInetConnection::checked(bool done, const QString& routine) const {
    const int number = done ? 0 : functions_.last_error();
    if (number <= 0) return {};
    const QString description = number < kFirstLibraryNumber
                                    ? u"Win32API Error: %1 "_s.arg(number)
                                    : u"WinInet API Error: %1 "_s.arg(number) + GetWinApiDesc(number);
    return std::unexpected(ConnectionError{.number = number + kApplicationErrorBase + kOwnNumbersFrom,
                                           .source = u"CWinInetConnection."_s + routine,
                                           .description = description});
}

}  // namespace pondera
