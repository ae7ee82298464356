#include "backend/bss_identity.h"
#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/log.h"
#include "backend/shell.h"
#include "security/modes.h"
#include "security/wps.h"
#include "security/wps_info.h"

#include <arpa/inet.h>
#include <array>
#include <cstdio>

namespace {

constexpr char default_passphrase[] = "ExampleDefaultKey0421";

// The address of the host side, from whichever band's settings have it. It goes into a shell command, so it
// must be an address and nothing else.
Status read_host_address(const char *who, std::span<char> ret_address) {
    in_addr parsed;
    if (nvram_get_str(settings_24g, "AtomEthIpAddr", ret_address) != success &&
        nvram_get_str(settings_5g, "AtomEthIpAddr", ret_address) != success)
        return failure;
    if (inet_pton(AF_INET, ret_address.data(), &parsed) == 1)
        return success;
    log_error("[ZAV-API] Error %s AtomEthIpAddr is not an IPv4 address.\n", who);
    return failure;
}

Status restart_wps_daemon(const char *who, const WpsRadio &radio) {
    constexpr char routes[] = "route del -net 224.0.0.0 netmask 240.0.0.0 dev eth0; "
                              "route add -net 239.255.255.0 netmask 255.255.255.0 dev br0";
    std::array<char, 64> address; // longer than any address, so that none is made of a longer text
    std::array<char, 200> command;
    log_debug("[ZAV-API] %s command=%s\n", who, routes);
    if (run_unchecked(who, routes, tool_deadline) == -1 || read_host_address(who, address) != success)
        return failure;
    std::snprintf(
        command.data(), command.size(),
        "killall -9 wscd ; sleep 1 ; $zav_install_dir/wscd -D -w $zav_install_dir/xml -m 1 -i %s -a %s",
        radio.first.name.data(), address.data());
    return run_command(who, command.data(), {}, tool_deadline);
}

Status secure(const WpsRadio &radio) {
    std::array<char, 33> ssid;
    if (ZAV_Show(radio.first_index, "SSID", ssid) != success ||
        ZAV_SetSSID(radio.first_index, ssid.data()) == failure ||
        ZAV_SetWpaBasicAuthenticationModes(radio.first_index, "WPA2PSK") == failure ||
        ZAV_SetWpaEncryptionModes(radio.first_index, "AESEncryption") == failure ||
        nvram_set_str(radio.first, "WPAPSK1", default_passphrase) == failure)
        return failure;
    return success;
}

} // namespace

Status ZAV_SetWpsOOB(int index) {
    WpsRadio radio;
    if (check_driver(__func__, DriverState::loaded) != success)
        return failure;
    if (find_wps_radio(index, &radio) != success || reset_wps(__func__, radio.first.name) != success ||
        restart_wps_daemon(__func__, radio) != success)
        return failure;
    return secure(radio);
}
