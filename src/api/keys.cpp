#include "api/keys.h"

#include "api/wrapper.h"
#include "security/keys.h"

Status wlan_getWepKeyIndex(int index, unsigned *ret_key_index) {
    return get(__func__, ZAV_GetWepKeyIndex, "key index: %d\n", index, ret_key_index);
}

Status wlan_setWepKeyIndex(int index, unsigned key_index) {
    return set(__func__, ZAV_SetWepKeyIndex, "keyIndex=%u\n", "key index set to:%d\n", index, key_index);
}

Status wlan_getWepEncryptionLevel(int index, std::span<char> ret_level) {
    return get(__func__, ZAV_GetWepEncryptionLevel, "encryption level: %s\n", index, ret_level);
}

Status wlan_setWepEncryptionLevel(int index, const char *level) {
    return set(__func__, ZAV_SetWepEncryptionLevel, "encLevel=%s\n", "encryption level set to:%s\n", index,
               level);
}

Status wlan_getWepKey(int index, int key_index, std::span<char> ret_key) {
    return get_selected(__func__, ZAV_GetWepKey, "keyIndex=%d\n", "WEP key: %s\n", index, key_index, ret_key);
}

Status wlan_setWepKey(int index, int key_index, const char *key) {
    return set_selected(__func__, ZAV_SetWepKey, "keyIndex=%d key=%s\n", "WEP key set to:%s\n", index,
                        key_index, key);
}

Status wlan_getWepKeyPassphrase(int index, std::span<char> ret_key) {
    return get(__func__, ZAV_GetWepKeyPassphrase, "WEP key: %s\n", index, ret_key);
}

Status wlan_setWepKeyPassphrase(int index, const char *key) {
    return set(__func__, ZAV_SetWepKeyPassphrase, "key=%s\n", "WEP key set to:%s\n", index, key);
}

Status wlan_getPreSharedKey(int index, int key_index, std::span<char> ret_key) {
    return get_selected(__func__, ZAV_GetPreSharedKey, "keyIndex=%d\n", "pre-shared key: %s\n", index,
                        key_index, ret_key);
}

Status wlan_setPreSharedKey(int index, int key_index, const char *key) {
    return set_selected(__func__, ZAV_SetPreSharedKey, "keyIndex=%d psk=%s\n", "pre-shared key set to:%s\n",
                        index, key_index, key);
}

Status wlan_getKeyPassphrase(int index, int key_index, std::span<char> ret_passphrase) {
    return get_selected(__func__, ZAV_GetKeyPassphrase, "keyIndex=%d\n", "passphrase: %s\n", index, key_index,
                        ret_passphrase);
}

Status wlan_setKeyPassphrase(int index, int key_index, const char *passphrase) {
    return set_selected(__func__, ZAV_SetKeyPassphrase, "keyIndex=%d passphrase=%s\n",
                        "passphrase set to:%s\n", index, key_index, passphrase);
}
