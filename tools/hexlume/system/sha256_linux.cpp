#include <nettle/base16.h>
#include <nettle/sha2.h>

#include "platform/portable/loaded_library.h"
#include "tools/hexlume/system/sha256.h"

namespace hexlume {
namespace {

// Its header has shorter names for the functions.
struct Nettle {
  Nettle() {
    const LoadedLibrary library("libnettle.so.8");
    library.Find("nettle_sha256_init", init);
    library.Find("nettle_sha256_update", update);
    library.Find("nettle_sha256_digest", digest);
    library.Find("nettle_base16_encode_update", encode);
  }

  decltype(&sha256_init) init;
  decltype(&sha256_update) update;
  decltype(&sha256_digest) digest;
  decltype(&base16_encode_update) encode;
};

}  // namespace

std::string Sha256(std::string_view bytes) {
  static const Nettle nettle;
  sha256_ctx context;
  nettle.init(&context);
  nettle.update(&context, bytes.size(), reinterpret_cast<const uint8_t*>(bytes.data()));
  uint8_t digest[SHA256_DIGEST_SIZE];
  nettle.digest(&context, sizeof digest, digest);
  std::string text(BASE16_ENCODE_LENGTH(sizeof digest), '\0');
  nettle.encode(text.data(), sizeof digest, digest);
  return text;
}

}  // namespace hexlume
