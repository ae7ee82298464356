#include "api/wps.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

namespace {

// Questions about registrars are told by name alone, and their numbers without a value line.
int get_registrars(const char *who, Status (*operation)(int, unsigned *), int index,
                   wlan_config_result_data_t *result) {
    unsigned value = 0;
    say_name(who);
    const Status status = operation(index, &value);
    return reply_number(status, value, result);
}

template <std::size_t room>
int get_registrar_text(const char *who, Status (*operation)(int, int, std::span<char>),
                       Line<const char *> line, int index, int registrar_index,
                       wlan_config_result_data_t *result) {
    std::array<char, room> text{};
    say_name(who);
    const Status status = operation(index, registrar_index, text);
    return reply_text(who, line, status, text.data(), result);
}

} // namespace

int wlan_set_wps_model_name_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsModelName, "[modelName=%s]\n", index, value, result);
}

int wlan_get_wps_config_timeout_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWpsConfigTimeout, "[out_uint = %d ]\n", index, result);
}

int wlan_set_wps_config_timeout_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsConfigTimeout, "[configTimeout=%d]\n", index, value, result);
}

int wlan_get_wps_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWpsEnable, "[enable = %d ]\n", index, result);
}

int wlan_set_wps_enable_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsEnable, "[enable=%d]\n", index, value, result);
}

int wlan_get_wps_device_name_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wps_device_name>(__func__, wlan_getWpsDeviceName, "[devName %s]\n",
                                                         index, result);
}

int wlan_get_wps_device_password_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wps_device_password>(__func__, wlan_getWpsDevicePassword,
                                                             "[password = %s ]\n", index, result);
}

int wlan_set_wps_device_password_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsDevicePassword, "[password=%s]\n", index, value, result);
}

int wlan_get_wps_uuid_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wps_uuid>(__func__, wlan_getWpsUuid, "[uuid %s]\n", index, result);
}

int wlan_set_wps_uuid_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsUuid, "[uuid=%s]\n", index, value, result);
}

int wlan_get_wps_version_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWpsVersion, "[password = %d ]\n", index, result);
}

int wlan_get_wps_config_methods_supported_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wps_config_methods_supported>(
        __func__, wlan_getWpsConfigMethodsSupported, "[supported methods %s]\n", index, result);
}

int wlan_get_wps_config_methods_enabled_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wps_config_methods_enabled>(__func__, wlan_getWpsConfigMethodsEnabled,
                                                                    "[methods enabled %s]\n", index, result);
}

int wlan_set_wps_config_methods_enabled_1_svc(int index, const char *value,
                                              wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsConfigMethodsEnabled, "[methods=%s]\n", index, value, result);
}

int wlan_get_wps_setup_locked_state_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wps_setup_locked_state>(__func__, wlan_getWpsSetupLockedState,
                                                                "[state %s]\n", index, result);
}

int wlan_get_wps_setup_lock_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWpsSetupLock, "[lock = %d ]\n", index, result);
}

int wlan_set_wps_setup_lock_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsSetupLock, "[lock=%d]\n", index, value, result);
}

int wlan_get_wps_configuration_state_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wps_configuration_state>(__func__, wlan_getWpsConfigurationState,
                                                                 "[state %s]\n", index, result);
}

int wlan_get_wps_last_configuration_error_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wps_last_configuration_error>(
        __func__, wlan_getWpsLastConfigurationError, "[error %s]\n", index, result);
}

int wlan_get_wps_registrar_entries_num_1_svc(int index, wlan_config_result_data_t *result) {
    return get_registrars(__func__, wlan_getWpsRegistrarNumEntries, index, result);
}

int wlan_get_wps_registrar_established_1_svc(int index, wlan_config_result_data_t *result) {
    return get_registrars(__func__, wlan_getWpsRegistrarEstablished, index, result);
}

int wlan_get_wps_registrar_enabled_1_svc(int index, int registrar_index, wlan_config_result_data_t *result) {
    unsigned value = 0;
    say_name(__func__);
    const Status status = wlan_getWpsRegistrarEnabled(index, registrar_index, &value);
    return reply_number(status, value, result);
}

int wlan_set_wps_registrar_enabled_1_svc(int index, int registrar_index, bool value,
                                         wlan_config_return_code_e *result) {
    *result = code_of(wlan_setWpsRegistrarEnabled(index, registrar_index, value));
    return 1;
}

int wlan_get_wps_registrar_uuid_1_svc(int index, int registrar_index, wlan_config_result_data_t *result) {
    return get_registrar_text<text_size::wlan_get_wps_registrar_uuid>(
        __func__, wlan_getWpsRegistrarUuid, "[uuid %s]\n", index, registrar_index, result);
}

int wlan_get_wps_registrar_device_name_1_svc(int index, int registrar_index,
                                             wlan_config_result_data_t *result) {
    return get_registrar_text<text_size::wlan_get_wps_registrar_device_name>(
        __func__, wlan_getWpsRegistrarDeviceName, "[name %s]\n", index, registrar_index, result);
}

int wlan_set_wps_cancel_1_svc(int index, wlan_config_return_code_e *result) {
    return run_action(__func__, wlan_setWpsCancel, index, result);
}

int wlan_get_wps_mode_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWpsMode, "[wpsMode = %d ]\n", index, result);
}

int wlan_set_wps_mode_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsMode, "[wpsMode=%d]\n", index, value, result);
}

int wlan_get_wps_model_name_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_wps_model_name>(__func__, wlan_getWpsModelName, "[name %s]\n",
                                                                index, result);
}

int wlan_get_wps_result_status_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_wps_result_status>(__func__, wlan_getWpsResultStatus,
                                                                   "[name %s]\n", index, result);
}

int wlan_get_wps_status_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_wps_status>(__func__, wlan_getWpsStatus, "[name %s]\n", index,
                                                            result);
}

int wlan_set_wps_pushbutton_1_svc(int index, wlan_config_return_code_e *result) {
    return run_action(__func__, wlan_setWpsPushButton, index, result);
}

int wlan_set_wps_pinstart_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsPinStart, "[pincode=%s]\n", index, value, result);
}

int wlan_set_wps_oob_1_svc(int index, wlan_config_return_code_e *result) {
    return run_action(__func__, wlan_setWpsOOB, index, result);
}
