#pragma once

// Turning a fuzzer's bytes into the texts the functions under test read.

#include <QString>

#include <cstddef>
#include <cstdint>
#include <utility>

namespace tolvinpt::fuzz {

// The bytes as UTF-16 code units, two bytes each (odd last byte dropped): every QString there is,
// lone surrogates and NUL included.
inline QString utf16Text(const std::uint8_t* data, std::size_t size)
{
    QString text;
    text.reserve(qsizetype(size / 2));
    for (std::size_t i = 0; i + 1 < size; i += 2)
        text.append(QChar(char16_t(data[i] | (data[i + 1] << 8))));
    return text;
}

// The bytes as Latin-1 characters: small inputs that reach the ASCII rules quickly.
inline QString latin1Text(const std::uint8_t* data, std::size_t size)
{
    return QString::fromLatin1(reinterpret_cast<const char*>(data), qsizetype(size));
}

// Two texts: the bytes up to the first 0xFF and those after it.
inline std::pair<QString, QString> twoTexts(const std::uint8_t* data, std::size_t size)
{
    std::size_t split = 0;
    while (split < size && data[split] != 0xFF)
        ++split;
    const std::size_t rest = split < size ? split + 1 : size;
    return {latin1Text(data, split), latin1Text(data + rest, size - rest)};
}

} // namespace tolvinpt::fuzz
