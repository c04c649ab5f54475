// The other coders by their quickest call: into a given buffer where there is such a call.
#include "bench/base64_coders.h"

#include <absl/strings/escaping.h>
#include <glib.h>
#include <modp_b64.h>
#include <openssl/evp.h>

#include <boost/beast/core/detail/base64.hpp>
#include <cstring>
#include <string>

namespace quill::bench {
namespace {

namespace beast = boost::beast::detail::base64;

std::size_t Copy(std::string_view in, char* out) {
  std::memcpy(out, in.data(), in.size());
  return in.size();
}

std::size_t ModpEncode(std::string_view in, char* out) {
  return modp_b64_encode(out, in.data(), in.size());
}
std::size_t ModpDecode(std::string_view in, char* out) {
  return modp_b64_decode(out, in.data(), in.size());
}

std::size_t OpenSslEncode(std::string_view in, char* out) {
  return static_cast<std::size_t>(EVP_EncodeBlock(reinterpret_cast<unsigned char*>(out),
                                                  reinterpret_cast<const unsigned char*>(in.data()),
                                                  static_cast<int>(in.size())));
}
// It counts the padding as bytes.
std::size_t OpenSslDecode(std::string_view in, char* out) {
  return static_cast<std::size_t>(EVP_DecodeBlock(reinterpret_cast<unsigned char*>(out),
                                                  reinterpret_cast<const unsigned char*>(in.data()),
                                                  static_cast<int>(in.size())));
}

std::size_t GlibEncode(std::string_view in, char* out) {
  gint state = 0;
  gint save = 0;
  const gsize written = g_base64_encode_step(reinterpret_cast<const guchar*>(in.data()), in.size(),
                                             FALSE, out, &state, &save);
  return written + g_base64_encode_close(FALSE, out + written, &state, &save);
}
std::size_t GlibDecode(std::string_view in, char* out) {
  gint state = 0;
  guint save = 0;
  return g_base64_decode_step(in.data(), in.size(), reinterpret_cast<guchar*>(out), &state, &save);
}

// It writes to strings only; one that keeps its room is its quickest target.
std::size_t AbseilEncode(std::string_view in, char*) {
  static std::string target;
  absl::Base64Escape({in.data(), in.size()}, &target);
  return target.size();
}
std::size_t AbseilDecode(std::string_view in, char*) {
  static std::string target;
  absl::Base64Unescape({in.data(), in.size()}, &target);
  return target.size();
}

std::size_t BoostEncode(std::string_view in, char* out) {
  return beast::encode(out, in.data(), in.size());
}
std::size_t BoostDecode(std::string_view in, char* out) {
  return beast::decode(out, in.data(), in.size()).first;
}

constexpr Base64Coder kCoders[] = {
    {kFloor, Copy, Copy},
    {"modp_b64", ModpEncode, ModpDecode},
    {"OpenSSL", OpenSslEncode, OpenSslDecode},
    {"GLib", GlibEncode, GlibDecode},
    {"Abseil", AbseilEncode, AbseilDecode},
    {"Boost", BoostEncode, BoostDecode},
};

}  // namespace

std::span<const Base64Coder> OtherBase64Coders() noexcept {
  return kCoders;
}

}  // namespace quill::bench
