#include "backend/running_interfaces.h"

#include "backend/log.h"
#include "backend/shell.h"

Radios GET_RUNNING_INTERFACES() {
    constexpr char command[] = "ifconfig";
    log_debug("[ZAV-API] %s command=%s.\n", __func__, command);
    bool has_24g = false, has_5g = false;
    const Status read = read_command(__func__, command, tool_deadline, [&](std::string_view line) {
        has_24g = has_24g || line.starts_with("zvi0");
        has_5g = has_5g || line.starts_with("zv0");
    });
    if (read != success)
        return Radios::unknown;
    if (has_24g)
        return has_5g ? Radios::both : Radios::only_24g;
    return has_5g ? Radios::only_5g : Radios::none;
}

int isInterfacesRunningOnBand(int index) {
    Bss bss;
    return find_bss(index, &bss) == success && includes(GET_RUNNING_INTERFACES(), bss.radio) ? 1 : 0;
}
