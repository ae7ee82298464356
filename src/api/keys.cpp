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
    return get_secret_of(__func__, ZAV_GetWepKey, "keyIndex=%d\n", "WEP key read\n", index, key_index,
                         ret_key);
}

Status wlan_setWepKey(int index, int key_index, const char *key) {
    return set_secret_of(__func__, ZAV_SetWepKey, "keyIndex=%d\n", "WEP key set\n", index, key_index, key);
}

Status wlan_getWepKeyPassphrase(int index, std::span<char> ret_key) {
    return get_secret(__func__, ZAV_GetWepKeyPassphrase, "WEP key read\n", index, ret_key);
}

Status wlan_setWepKeyPassphrase(int index, const char *key) {
    return set_secret(__func__, ZAV_SetWepKeyPassphrase, "WEP key set\n", index, key);
}

Status wlan_getPreSharedKey(int index, int key_index, std::span<char> ret_key) {
    return get_secret_of(__func__, ZAV_GetPreSharedKey, "keyIndex=%d\n", "pre-shared key read\n", index,
                         key_index, ret_key);
}

Status wlan_setPreSharedKey(int index, int key_index, const char *key) {
    return set_secret_of(__func__, ZAV_SetPreSharedKey, "keyIndex=%d\n", "pre-shared key set\n", index,
                         key_index, key);
}

Status wlan_getKeyPassphrase(int index, int key_index, std::span<char> ret_passphrase) {
    return get_secret_of(__func__, ZAV_GetKeyPassphrase, "keyIndex=%d\n", "passphrase read\n", index,
                         key_index, ret_passphrase);
}

Status wlan_setKeyPassphrase(int index, int key_index, const char *passphrase) {
    return set_secret_of(__func__, ZAV_SetKeyPassphrase, "keyIndex=%d\n", "passphrase set\n", index,
                         key_index, passphrase);
}
