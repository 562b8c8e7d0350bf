#include <windows.h>

#include <wincrypt.h>

#include <algorithm>

#include "tools/hexlume/system/sha256.h"

namespace hexlume {
namespace {

constexpr DWORD digestSize = 32;

class Provider {
 public:
  Provider() {
    if (CryptAcquireContextW(&handle, nullptr, nullptr, PROV_RSA_AES, CRYPT_VERIFYCONTEXT)) return;
    // The name in Windows XP.
    if (!CryptAcquireContextW(&handle, nullptr, MS_ENH_RSA_AES_PROV_XP_W, PROV_RSA_AES, CRYPT_VERIFYCONTEXT))
      handle = 0;
  }
  ~Provider() {
    if (handle) CryptReleaseContext(handle, 0);
  }
  Provider(const Provider&) = delete;
  Provider& operator=(const Provider&) = delete;

  HCRYPTPROV handle = 0;
};

bool HashAll(HCRYPTHASH hash, std::string_view bytes) {
  constexpr size_t most = 1 << 24;
  while (!bytes.empty()) {
    const size_t part = std::min(bytes.size(), most);
    if (!CryptHashData(hash, reinterpret_cast<const BYTE*>(bytes.data()), static_cast<DWORD>(part), 0))
      return false;
    bytes.remove_prefix(part);
  }
  return true;
}

}  // namespace

std::string Sha256(std::string_view bytes) {
  static const Provider provider;
  HCRYPTHASH hash = 0;
  if (!provider.handle || !CryptCreateHash(provider.handle, CALG_SHA_256, 0, 0, &hash)) return "";
  BYTE digest[digestSize];
  DWORD size = digestSize;
  const bool isDone = HashAll(hash, bytes) && CryptGetHashParam(hash, HP_HASHVAL, digest, &size, 0);
  CryptDestroyHash(hash);
  std::string text;
  for (DWORD i = 0; isDone && i < size; ++i)
    for (const int digit : {digest[i] >> 4, digest[i] & 15}) text += "0123456789abcdef"[digit];
  return text;
}

}  // namespace hexlume
