// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

#include <cstddef>

struct gcry_cipher_handle;

namespace CITP {

// A Blowfish key schedule (libgcrypt), used in ECB mode on whole 8-byte blocks.
class Blowfish
{
public:
    static constexpr std::size_t blockSize = 8;
    static constexpr std::size_t maxKeySize = 72;

    // Any key of 1 to 72 bytes. libgcrypt calls a few keys weak; the peer
    // shares the key and expects the plain cipher, so those are used anyway.
    explicit Blowfish(QByteArrayView key);
    ~Blowfish();
    Blowfish(const Blowfish&) = delete;
    Blowfish& operator=(const Blowfish&) = delete;

    bool isValid() const { return m_handle != nullptr; }
    // Whether libgcrypt found the key weak (and it was accepted anyway).
    bool isWeakKey() const { return m_weakKey; }

    // The standard block function: each block's halves are big-endian.
    // size must be a multiple of blockSize.
    void encrypt(unsigned char* data, std::size_t size) const;
    void decrypt(unsigned char* data, std::size_t size) const;

    // The order used on the wire for level blocks: each 4-byte half is read
    // and written little-endian around the standard block function.
    void encryptLittleEndian(unsigned char* data, std::size_t size) const;
    void decryptLittleEndian(unsigned char* data, std::size_t size) const;

private:
    static void swapHalves(unsigned char* data, std::size_t size);

    gcry_cipher_handle* m_handle = nullptr;
    bool m_weakKey = false;
};

} // namespace CITP
