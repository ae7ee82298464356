/*
 * A client in C, on what rpcgen makes of wlan_config.x:
 *
 *     rpcgen -C -h -o wlan_config.h wlan_config.x, likewise -c -o wlan_config_xdr.c and -l -o wlan_config_clnt.c
 *     cc client.c wlan_config_xdr.c wlan_config_clnt.c $(pkg-config --cflags --libs libtirpc) -o client
 *     ./client HOST get-ssid INDEX | set-ssid INDEX TEXT | scan INDEX | stations INDEX
 */
#include "wlan_config.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

/* A record travels as its memory image: the bytes of the answer are the struct. */
static const void *image(const wlan_config_result_data_t *answer, size_t size) {
    if (answer == NULL || answer->return_code < 0 || answer->return_data.return_data_len != size)
        return NULL;
    return answer->return_data.return_data_val;
}

static int fail(CLIENT *client, const char *what) {
    fprintf(stderr, "%s\n", clnt_sperror(client, what));
    return 1;
}

static int get_ssid(CLIENT *client, int index) {
    const wlan_config_result_data_t *answer = wlan_get_ssid_1(&index, client);
    if (answer == NULL)
        return fail(client, "wlan_get_ssid");
    /* A text ends with a zero byte; do not trust the sender for it. */
    printf("%d %.*s\n", (int)answer->return_code, (int)answer->return_data.return_data_len,
           answer->return_data.return_data_len == 0 ? "" : answer->return_data.return_data_val);
    return answer->return_code < 0;
}

static int set_ssid(CLIENT *client, int index, char *text) {
    wlan_set_ssid_1_argument argument = {index, text};
    const wlan_config_return_code_e *code = wlan_set_ssid_1(&argument, client);
    if (code == NULL)
        return fail(client, "wlan_set_ssid");
    printf("%d\n", (int)*code);
    return *code < 0;
}

static int scan(CLIENT *client, int index) {
    const wlan_config_result_data_t *answer = wlan_ap_scan_1(&index, client);
    unsigned status = 1; /* running; 3 is finished */
    if (answer == NULL || answer->return_code < 0)
        return fail(client, "wlan_ap_scan");
    while (status == 1) {
        usleep(200000);
        answer = wlan_get_ap_scan_status_1(&index, client);
        if (answer == NULL || answer->return_code < 0 || answer->return_u_int.return_u_int_len == 0)
            return fail(client, "wlan_get_ap_scan_status");
        status = answer->return_u_int.return_u_int_val[0]; /* the first element; the count is in bytes */
    }
    const struct scan_table *table = image(wlan_get_ap_scan_result_1(&index, client), sizeof *table);
    if (status != 3 || table == NULL)
        return fail(client, "the scan failed");
    for (int i = 0; i < table->count && i < 64; ++i)
        printf("%.32s channel %d, %d dBm\n", table->entries[i].ssid, table->entries[i].byte3, table->entries[i].number);
    return 0;
}

static int stations(CLIENT *client, int index) {
    const struct wlan_assoc_devices_table *table = image(wlan_get_assoc_devices_table_1(&index, client), sizeof *table);
    if (table == NULL)
        return fail(client, "wlan_get_assoc_devices_table");
    for (unsigned i = 0; i < table->count && i < 32; ++i)
        printf("%.18s %d dBm\n", table->devices[i].mac_address, table->devices[i].rssi);
    return 0;
}

int main(int argc, char **argv) {
    if (argc < 4)
        return fprintf(stderr, "usage: client HOST get-ssid|set-ssid|scan|stations INDEX [TEXT]\n"), 2;
    CLIENT *client = clnt_create(argv[1], WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, "udp");
    if (client == NULL)
        return fprintf(stderr, "%s\n", clnt_spcreateerror(argv[1])), 1;
    const int index = atoi(argv[3]);
    if (strcmp(argv[2], "get-ssid") == 0)
        return get_ssid(client, index);
    if (strcmp(argv[2], "set-ssid") == 0 && argc == 5)
        return set_ssid(client, index, argv[4]);
    return strcmp(argv[2], "scan") == 0 ? scan(client, index) : stations(client, index);
}
