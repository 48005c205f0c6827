#include "core/Failure.h"

#include <exception>
#include <new>
#include <stdexcept>

namespace orvCore {

const char* currentFailure() noexcept {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return "out of memory";
  } catch (const std::length_error&) {
    return "a value is too long to hold";
  } catch (const std::exception&) {
    return "an internal error";
  } catch (...) {
    return "an unknown internal error";
  }
}

}  // namespace orvCore
