// SHA-256 by the cryptography API of Windows.

#include <windows.h>

#include <bcrypt.h>

#include <algorithm>
#include <stdexcept>

#include "platform/sha256.h"

namespace {

void Require(NTSTATUS status) {
    if (status < 0) throw std::runtime_error("Windows refuses to form SHA-256");
}

}  // namespace

struct Sha256::State {
    ~State() {
        if (hash != nullptr) BCryptDestroyHash(hash);
        if (algorithm != nullptr) BCryptCloseAlgorithmProvider(algorithm, 0);
    }

    BCRYPT_ALG_HANDLE algorithm = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;
};

Sha256::Sha256() : state_(std::make_unique<State>()) {
    Require(BCryptOpenAlgorithmProvider(&state_->algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0));
    Require(BCryptCreateHash(state_->algorithm, &state_->hash, nullptr, 0, nullptr, 0, 0));
}

Sha256::~Sha256() = default;

// The API takes bytes as if it changed them, and counts them in 32 bits.
void Sha256::Add(std::span<const char> bytes) {
    std::array<UCHAR, 4096> block{};
    while (!bytes.empty()) {
        const auto piece = bytes.first(std::min(bytes.size(), block.size()));
        std::copy(piece.begin(), piece.end(), block.begin());
        Require(BCryptHashData(state_->hash, block.data(), static_cast<ULONG>(piece.size()), 0));
        bytes = bytes.subspan(piece.size());
    }
}

std::string Sha256::Digest() {
    std::array<std::uint8_t, 32> digest{};
    Require(BCryptFinishHash(state_->hash, digest.data(), static_cast<ULONG>(digest.size()), 0));
    return HexText(digest);
}
