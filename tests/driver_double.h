#pragma once

#include "backend/interfaces.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <linux/wireless.h>
#include <map>
#include <string>
#include <sys/ioctl.h>
#include <vector>

// The driver as a test wants it: this program's ioctl. For one source file of a program.

namespace driver {

inline std::map<unsigned long, std::string> answers; // by request; one that is not here fails
inline std::vector<std::string> asked;               // "NUMBER INTERFACE COMMAND LENGTH"

// Eight BSSes a band, initialised, and nothing asked yet.
inline void start() {
    set_known_driver(DriverState::initialised, {8, 8});
    answers.clear();
    asked.clear();
}

} // namespace driver

extern "C" int ioctl(int, unsigned long number, ...) noexcept {
    va_list arguments;
    va_start(arguments, number);
    auto *request = va_arg(arguments, iwreq *);
    va_end(arguments);
    auto *buffer = static_cast<char *>(request->u.data.pointer);
    driver::asked.push_back(std::to_string(number - SIOCIWFIRSTPRIV) + " " + request->ifr_ifrn.ifrn_name +
                            " " + buffer + " " + std::to_string(request->u.data.length));
    const auto answer = driver::answers.find(number - SIOCIWFIRSTPRIV);
    if (answer == driver::answers.end()) {
        errno = EIO;
        return -1;
    }
    std::copy(answer->second.begin(), answer->second.end(), buffer);
    request->u.data.length = static_cast<__u16>(answer->second.size());
    return 0;
}

// Bytes of a record, put together by hand.
inline void put(std::string *record, std::size_t at, const std::string &bytes) {
    record->resize(std::max(record->size(), at + bytes.size()));
    record->replace(at, bytes.size(), bytes);
}

inline std::string little_endian(unsigned long long value, std::size_t width) {
    std::string bytes;
    for (std::size_t i = 0; i < width; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}
