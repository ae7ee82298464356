// The channel-info file. The first byte picks the bandwidth: 4 is 40 MHz, any other 20 MHz.

#undef NDEBUG
#include "backend/channel_info.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstring>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size < 2)
        return 0;
    std::string text(data + 1, data + size), list = "left over";
    const std::unique_ptr<FILE, int (*)(FILE *)> file(fmemopen(text.data(), text.size(), "r"), std::fclose);
    ChannelFault fault{};
    assert(file);
    const Status status = find_channels(file.get(), {"US", "2.4", data[0] == '4' ? 40 : 20}, &list, &fault);
    if (status == success) {
        assert(list.ends_with('0') && list.find_first_of("#)\r\n\t \0", 0, 7) == list.npos);
        assert(list == "0" || (list.ends_with(",0") && list.find_first_of("123456789") != list.npos));
        return 0;
    }
    const auto ends = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    const std::size_t lines = ends + (text.back() == '\n' ? 0 : 1);
    assert(list.empty() && fault.line >= 1 && fault.line <= lines && std::strlen(fault.message) > 0);
    assert(fault.argument.empty() || fault.argument == "US");
    return 0;
}
