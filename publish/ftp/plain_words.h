#pragma once

#include <QString>

#include "publish/commands/command_executor.h"
#include "publish/transfer/transfer_outcome.h"

namespace pondera {

/// What happened and what to do about it, in words for somebody who knows no servers; for a task that broke.
[[nodiscard]] QString plain_words(const TaskEnd& end);

/// The line that tells whether what goes to the server is protected.
[[nodiscard]] QString protection_words(const LineProtection& protection);

/// A server's words in one line, shortened where they are a speech.
[[nodiscard]] QString brief(const QString& reply);

/// Asks whether to go on with a server that offered protection until now.
[[nodiscard]] QString open_line_question(const QString& host);

/// Asks whether a certificate or host key is to be trusted that the system does not vouch for; `before` is the
/// fingerprint that was trusted until now, empty for none.
[[nodiscard]] QString trust_question(const QString& host, const LineProtection& protection, const QByteArray& before);

}  // namespace pondera
