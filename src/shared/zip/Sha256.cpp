#include "zip/Sha256.h"

#include <openssl/err.h>
#include <openssl/evp.h>

#include <new>

#include "msg/HEXAll.h"
#include "util/LoadedLibrary.h"

namespace zip {
namespace {

struct Libcrypto {
    decltype(&EVP_MD_CTX_new) contextNew;
    decltype(&EVP_MD_CTX_free) contextFree;
    decltype(&EVP_sha256) sha256;
    decltype(&EVP_DigestInit_ex) init;
    decltype(&EVP_DigestUpdate) update;
    decltype(&EVP_DigestFinal_ex) final;
    decltype(&ERR_set_mark) setMark;
    decltype(&ERR_pop_to_mark) popToMark;
};

Libcrypto load() {
    const LoadedLibrary library(ZR_LIBCRYPTO_SONAME, "computes the digests of archives");
    Libcrypto crypto;
    library.find(crypto.contextNew, "EVP_MD_CTX_new");
    library.find(crypto.contextFree, "EVP_MD_CTX_free");
    library.find(crypto.sha256, "EVP_sha256");
    library.find(crypto.init, "EVP_DigestInit_ex");
    library.find(crypto.update, "EVP_DigestUpdate");
    library.find(crypto.final, "EVP_DigestFinal_ex");
    library.find(crypto.setMark, "ERR_set_mark");
    library.find(crypto.popToMark, "ERR_pop_to_mark");
    return crypto;
}

const Libcrypto& libcrypto() {
    static const Libcrypto loaded = load();
    return loaded;
}

/// The host may examine the thread's queue of libcrypto errors: ours are removed again.
class HostsErrors {
public:
    HostsErrors() { libcrypto().setMark(); }
    ~HostsErrors() { libcrypto().popToMark(); }
    HostsErrors(const HostsErrors&) = delete;
    HostsErrors& operator=(const HostsErrors&) = delete;
};

void check(int isGood) {
    if (isGood != 1) throw HEXUserException(ZR_LIBCRYPTO_SONAME " does not provide SHA-256");
}

}  // namespace

Sha256::Sha256() {
    const HostsErrors hosts;
    context_.reset(libcrypto().contextNew());
    if (!context_) throw std::bad_alloc();
    begin();
}

void Sha256::Free::operator()(evp_md_ctx_st* context) const { libcrypto().contextFree(context); }

void Sha256::begin() { check(libcrypto().init(context_.get(), libcrypto().sha256(), nullptr)); }

void Sha256::add(std::string_view bytes) {
    const HostsErrors hosts;
    check(libcrypto().update(context_.get(), bytes.data(), bytes.size()));
}

Hash Sha256::finish() {
    const HostsErrors hosts;
    Hash hash;
    check(libcrypto().final(context_.get(), reinterpret_cast<unsigned char*>(hash.data()), nullptr));
    begin();
    return hash;
}

std::string hexOf(const Hash& hash) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char c : hash) {
        const auto byte = static_cast<unsigned char>(c);
        text += {digits[byte >> 4], digits[byte & 15]};
    }
    return text;
}

}  // namespace zip
