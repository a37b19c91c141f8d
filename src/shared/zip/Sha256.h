#pragma once
#include <array>
#include <memory>
#include <string>
#include <string_view>

struct evp_md_ctx_st;

namespace zip {

/// 32 bytes of SHA-256.
using Hash = std::array<char, 32>;

/// The SHA-256 of bytes that are added in pieces.
class Sha256 {
public:
    /// Throws `HEXUserException` if the crypto library, which is loaded on first use, is not installed.
    Sha256();
    void add(std::string_view bytes);
    /// Of everything added; what is added next starts a new hash.
    Hash finish();

private:
    void begin();
    struct Free {
        void operator()(evp_md_ctx_st* context) const;
    };
    std::unique_ptr<evp_md_ctx_st, Free> context_;
};

/// In lower case.
std::string hexOf(const Hash& hash);

}  // namespace zip
