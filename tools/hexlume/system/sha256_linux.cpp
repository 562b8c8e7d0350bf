#include <nettle/base16.h>
#include <nettle/sha2.h>

#include "tools/hexlume/system/sha256.h"

namespace hexlume {

std::string Sha256(std::string_view bytes) {
  sha256_ctx context;
  sha256_init(&context);
  sha256_update(&context, bytes.size(), reinterpret_cast<const uint8_t*>(bytes.data()));
  uint8_t digest[SHA256_DIGEST_SIZE];
  sha256_digest(&context, sizeof digest, digest);
  std::string text(BASE16_ENCODE_LENGTH(sizeof digest), '\0');
  base16_encode_update(text.data(), sizeof digest, digest);
  return text;
}

}  // namespace hexlume
