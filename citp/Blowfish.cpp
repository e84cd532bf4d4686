// SPDX-License-Identifier: GPL-3.0-or-later
#include "Blowfish.h"

#include <QDebug>

#include <gcrypt.h>

#include <algorithm>

namespace CITP {

namespace {

// libgcrypt wants to be initialised once per process before first use.
void initialiseLibrary()
{
    static const bool initialised = [] {
        if (!gcry_control(GCRYCTL_INITIALIZATION_FINISHED_P)) {
            gcry_check_version(nullptr);
            // Session keys are not secrets worth locked memory.
            gcry_control(GCRYCTL_DISABLE_SECMEM, 0);
            gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
        }
        return true;
    }();
    Q_UNUSED(initialised);
}

} // namespace

Blowfish::Blowfish(QByteArrayView key)
{
    initialiseLibrary();
    if (key.isEmpty() || std::size_t(key.size()) > maxKeySize) {
        qWarning("Blowfish: a key of %lld bytes cannot be used", qlonglong(key.size()));
        return;
    }
    gcry_cipher_hd_t handle = nullptr;
    gcry_error_t error = gcry_cipher_open(&handle, GCRY_CIPHER_BLOWFISH, GCRY_CIPHER_MODE_ECB, 0);
    if (error) {
        qWarning("Blowfish: %s", gcry_strerror(error));
        return;
    }
    error = gcry_cipher_setkey(handle, key.data(), std::size_t(key.size()));
    if (gcry_err_code(error) == GPG_ERR_WEAK_KEY) {
        // Allowed, the key is set, but libgcrypt still says it was weak.
        m_weakKey = true;
        gcry_cipher_ctl(handle, GCRYCTL_SET_ALLOW_WEAK_KEY, nullptr, 1);
        error = gcry_cipher_setkey(handle, key.data(), std::size_t(key.size()));
        if (gcry_err_code(error) == GPG_ERR_WEAK_KEY)
            error = 0;
    }
    if (error) {
        qWarning("Blowfish: %s", gcry_strerror(error));
        gcry_cipher_close(handle);
        return;
    }
    m_handle = handle;
}

Blowfish::~Blowfish()
{
    if (m_handle)
        gcry_cipher_close(m_handle);
}

void Blowfish::encrypt(unsigned char* data, std::size_t size) const
{
    Q_ASSERT(size % blockSize == 0);
    if (m_handle)
        gcry_cipher_encrypt(m_handle, data, size, nullptr, 0);
}

void Blowfish::decrypt(unsigned char* data, std::size_t size) const
{
    Q_ASSERT(size % blockSize == 0);
    if (m_handle)
        gcry_cipher_decrypt(m_handle, data, size, nullptr, 0);
}

void Blowfish::encryptLittleEndian(unsigned char* data, std::size_t size) const
{
    swapHalves(data, size);
    encrypt(data, size);
    swapHalves(data, size);
}

void Blowfish::decryptLittleEndian(unsigned char* data, std::size_t size) const
{
    swapHalves(data, size);
    decrypt(data, size);
    swapHalves(data, size);
}

void Blowfish::swapHalves(unsigned char* data, std::size_t size)
{
    for (std::size_t i = 0; i + 4 <= size; i += 4)
        std::reverse(data + i, data + i + 4);
}

} // namespace CITP
