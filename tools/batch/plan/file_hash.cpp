#include "tools/batch/plan/file_hash.h"

#include <nettle/sha2.h>

#include <vector>

#include "tools/batch/base/text.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {

std::optional<std::string> HashOfFile(const std::string& path) {
  constexpr size_t pieceSize = 1 << 18;
  const File file = OpenFile(path, "rb");
  if (!file) return std::nullopt;
  std::setvbuf(file.get(), nullptr, _IONBF, 0);
  sha256_ctx context;
  sha256_init(&context);
  std::vector<char> piece(pieceSize);
  while (const size_t got = std::fread(piece.data(), 1, piece.size(), file.get()))
    sha256_update(&context, got, reinterpret_cast<const uint8_t*>(piece.data()));
  if (std::ferror(file.get())) return std::nullopt;
  std::string digest(SHA256_DIGEST_SIZE, '\0');
  sha256_digest(&context, digest.size(), reinterpret_cast<uint8_t*>(digest.data()));
  return HexDigits(digest);
}

}  // namespace hexlume::batch
