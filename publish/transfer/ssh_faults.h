#pragma once

#include "publish/transfer/transfer_faults.h"

namespace pondera {

/// The fault that stands for an SSH server's answer, where libcurl's result alone does not tell: whether the server
/// refused something, or the connection broke.
[[nodiscard]] TransferFault fault_of_ssh(const CurlAnswer& answer);

}  // namespace pondera
