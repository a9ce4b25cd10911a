#pragma once

#include <expected>

#include "base/file_error.h"
#include "publish/transfer/curl_session.h"

namespace pondera {

/// Why a step of a transfer failed.
struct TransferFault {
    int code = kInternalFault;  ///< as `TransferOutcome::code`
    QString text{};
    bool broken = false;        ///< the connection is gone, and a new one may do better
    bool name_refused = false;  ///< the server may take a file by another name
    bool file_cut = false;      ///< it broke in the middle of a file that the server had begun with
};

template <typename T>
using TransferResult = std::expected<T, TransferFault>;

/// The fault when every new connection broke in the same file, which was on its way up or down.
[[nodiscard]] TransferFault cut_each_time(bool upwards);

/// What an answer means: nothing when the request went well and the server refused none of its commands, else the
/// fault.
[[nodiscard]] TransferResult<void> result_of(const CurlAnswer& answer);

/// The fault that a reply of the server stands for.
[[nodiscard]] TransferFault refused(const FtpReply& reply);

/// The fault that a local file's fault becomes.
[[nodiscard]] TransferFault local_fault(const FileError& error);

/// A fault by its number, with its sentence.
[[nodiscard]] TransferFault fault(ResponseNumber number);

/// The same for a connection that is gone.
[[nodiscard]] TransferFault broken(ResponseNumber number);

}  // namespace pondera
