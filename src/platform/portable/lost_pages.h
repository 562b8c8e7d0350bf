// Pages of mapped files that are lost, as another program has shortened the file.
#pragma once

namespace hexlume {

struct LostPages {
  // For the handler of SIGBUS: if the address is in a mapped file, replaces its bytes from there to its end by zeros, so
  // that the access can be repeated. Returns false for any other address.
  static bool Replace(const void* address) noexcept;
};

}  // namespace hexlume
