#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace pondera {

enum class TransferVerb { kDir, kCd, kCdUp, kGet, kSend, kMkDir, kDelete, kRmDir };

/// A text command of the transfer control, taken apart.
struct TransferCommand {
    TransferVerb verb = TransferVerb::kDir;
    QString remote;  ///< empty for "DIR" and "CDUP"
    QString local;   ///< for "GET" and "SEND" only

    friend bool operator==(const TransferCommand&, const TransferCommand&) = default;
};

/// Reads "DIR", "CD name", "CDUP", "GET remote local", "SEND local remote", "MKDIR name", "DELETE name", "RMDIR name";
/// verbs in any case. A name with blanks may stand in double quotes (a quote within is doubled). Without quotes the
/// single names run to the end; "GET" is cut before a local part that is an absolute path, "SEND" behind a local part
/// for which `is_file` holds. Of several such cuts the one at which both files have the same name is meant. Nothing
/// when the command is unknown or incomplete, can be read in two ways, or holds control characters.
[[nodiscard]] std::optional<TransferCommand> parse_command(const QString& command,
                                                           const std::function<bool(const QString& path)>& is_file);

/// `name` as it stands in a command: in quotes, with quotes within doubled.
[[nodiscard]] QString quoted(const QString& name);

/// The text of a command with one or two names, each quoted only where it has to be.
[[nodiscard]] QString command_text(const QString& verb, const QString& name, const QString& second = {});

}  // namespace pondera
