#pragma once
// The names of the client operations that a request is served as: the names
// that refusals take and that the request trace writes under "op".

#include <string>
#include <vector>

namespace RefHost {

// Every name, in the order of docs/reference-host.md. "setValue" stands for
// both the settings store's and the progress dialog's.
const std::vector<std::string>& clientOperationNames();

bool isClientOperation(const std::string& name);

}  // namespace RefHost
