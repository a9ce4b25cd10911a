#include "publish/sending/checksum.h"

#include <openssl/evp.h>

namespace pondera {

struct Checksum::State {
    struct Free {
        void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
    };
    std::unique_ptr<EVP_MD_CTX, Free> context{EVP_MD_CTX_new()};
};

Checksum::Checksum() : state_(std::make_unique<State>()) {
    EVP_DigestInit_ex(state_->context.get(), EVP_sha256(), nullptr);
}

Checksum::~Checksum() = default;

void Checksum::add(QByteArrayView part) {
    EVP_DigestUpdate(state_->context.get(), part.data(), static_cast<std::size_t>(part.size()));
}

QByteArray Checksum::result() {
    constexpr qsizetype kBytes = 32;
    QByteArray bytes(kBytes, '\0');
    EVP_DigestFinal_ex(state_->context.get(), reinterpret_cast<unsigned char*>(bytes.data()), nullptr);
    return bytes.toHex();
}

QByteArray Checksum::of(QByteArrayView bytes) {
    Checksum checksum;
    checksum.add(bytes);
    return checksum.result();
}

}  // namespace pondera
