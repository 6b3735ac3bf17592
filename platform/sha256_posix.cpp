// SHA-256 by OpenSSL.

#include <openssl/evp.h>

#include <stdexcept>

#include "platform/sha256.h"

namespace {

void Require(int isSuccess) {
    if (isSuccess != 1) throw std::runtime_error("the system's library refuses to form SHA-256");
}

}  // namespace

struct Sha256::State {
    struct FreeContext {
        void operator()(EVP_MD_CTX* opened) const { EVP_MD_CTX_free(opened); }
    };
    std::unique_ptr<EVP_MD_CTX, FreeContext> context{EVP_MD_CTX_new()};
};

Sha256::Sha256() : state_(std::make_unique<State>()) {
    Require(state_->context ? 1 : 0);
    Require(EVP_DigestInit_ex(state_->context.get(), EVP_sha256(), nullptr));
}

Sha256::~Sha256() = default;

void Sha256::Add(std::span<const char> bytes) {
    Require(EVP_DigestUpdate(state_->context.get(), bytes.data(), bytes.size()));
}

std::string Sha256::Digest() {
    std::array<std::uint8_t, 32> digest{};
    Require(EVP_DigestFinal_ex(state_->context.get(), digest.data(), nullptr));
    return HexText(digest);
}
