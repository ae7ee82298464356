#include "api/lifecycle.h"

#include "api/restart.h"
#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_load_1_svc(int flags, wlan_config_return_code_e *result) {
    return run_action(__func__, wlan_load, flags, result);
}

int wlan_init_1_svc(wlan_config_return_code_e *result) {
    say_name(__func__);
    *result = code_of(wlan_init());
    return 1;
}

int wlan_reset_1_svc(wlan_config_return_code_e *result) {
    say_name(__func__);
    *result = code_of(wlan_reset());
    return 1;
}

int wlan_restart_all_1_svc(wlan_config_return_code_e *result) {
    *result = code_of(wlan_restart_all());
    return 1;
}

int wlan_restart_1_svc(int index, wlan_config_return_code_e *result) {
    return run_action(__func__, wlan_restart, index, result);
}
