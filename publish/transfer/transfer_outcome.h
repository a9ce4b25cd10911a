#pragma once

#include <QByteArray>
#include <QString>

#include "publish/transfer/remote_listing.h"

namespace pondera {

/// What the transfer control is doing, by the numbers of the classic control.
enum class InternetState {
    kNone = 0,
    kResolvingHost = 1,
    kHostResolved = 2,
    kConnecting = 3,
    kConnected = 4,
    kRequesting = 5,
    kRequestSent = 6,
    kReceivingResponse = 7,
    kResponseReceived = 8,
    kDisconnecting = 9,
    kDisconnected = 10,
    kError = 11,
    kResponseCompleted = 12,
};

/// How a command ended, by the numbers of the Internet client library. Numbers below 12001 are those of a fault with a
/// local file (`FaultNumber`; its low sixteen bits).
enum ResponseNumber : int {
    kFine = 0,
    kTimedOut = 12002,
    kServerAnsweredError = 12003,  ///< the text is the server's own
    kInternalFault = 12004,
    kBadAddress = 12005,
    kUnknownScheme = 12006,
    kNameNotResolved = 12007,
    kUserRefused = 12013,
    kPasswordRefused = 12014,
    kLoginFailed = 12015,
    kNotAllowed = 12016,
    kCancelled = 12017,
    kFileChanged = 12019,
    kBadCommand = 12027,
    kLocalFileMissing = 12028,
    kCannotConnect = 12029,
    kConnectionEnded = 12030,
    kConnectionReset = 12031,
    kCertificateNotTrusted = 12045,  ///< `LineProtection` tells whose it is; `trust_certificate` lets it pass
    kNoProtection = 12157,           ///< the person wished for protection, and the server has none
};

/// How far the line to the server is protected, for the person to see.
struct LineProtection {
    bool encrypted = false;        ///< what is said to the server, the password included
    bool files_encrypted = false;  ///< the files as well
    QString protocol{};            ///< "TLSv1.2", "SSH"; empty without protection
    bool verified = false;         ///< the system trusts the server's certificate, or the host key is known
    QString holder{};              ///< whom the certificate names
    QByteArray fingerprint{};      ///< SHA-256 of the certificate or host key, lower-case hexadecimal
    QString doubt{};               ///< why it is not trusted; empty when it is
};

/// All that a command leaves behind.
struct TransferOutcome {
    int code = kFine;
    QString text;
    RemoteListing listing;  ///< of the last "DIR"
    QString remote_folder;
    LineProtection protection;
};

}  // namespace pondera
