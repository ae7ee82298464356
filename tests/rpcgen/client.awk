# Reads wlan_config.x and writes a command-line client on top of what rpcgen makes from the same file:
#
#     rpcgen_client HOST PORT-or-0 NUMBER ARGUMENT...
#
# It shares no code with the daemon, so the two agree only if both are right about the protocol. One line
# tells the answer: "code N", "code N numbers A,B,... data HEX", or, with exit status 1, "error TEXT".

function fail(text) {
    print "client.awk: line " FNR ": " text >"/dev/stderr"
    failed = 1
    exit 1
}

# The C expression that reads an argument of this type from the command line.
function read_as(type, i) {
    if (type == "string") return "arguments[" i "]"
    if (type == "int") return "(int)integer(arguments[" i "])"
    if (type == "bool") return "integer(arguments[" i "]) != 0"
    if (type == "unsigned int" || type == "unsigned short") return "(" type ")integer(arguments[" i "])"
    fail("no way to read a " type)
}

# Body of one case: declares and fills `argument`, sets `count` to the number of words that it takes.
function fill_argument(type,    i, text) {
    if (type in fields) {
        count = fields[type]
        text = "            " type " argument;\n"
        for (i = 0; i < count; ++i)
            text = text "            argument." field_name[type, i] " = " read_as(field_type[type, i], i) ";\n"
        return text
    }
    count = 1
    if (type == "string") return "            char *argument = " read_as(type, 0) ";\n"
    return "            " (type == "bool" ? "bool_t" : type) " argument = " read_as(type, 0) ";\n"
}

BEGIN { cases = "" }

/^ *\/?\*/ { next } # a comment

/^struct / { record = $2; fields[record] = 0; next }
/^};/ { record = ""; next }

record != "" && /;$/ {
    sub(/;$/, "")
    sub(/<[^>]*>$/, "")
    type = $1
    for (i = 2; i < NF; ++i) type = type " " $i
    field_type[record, fields[record]] = type
    field_name[record, fields[record]++] = $NF
    next
}

/^version |^ +version / { in_version = 1; next }
/^ *} = / { in_version = 0; next }

in_version && NF > 0 {
    if ($0 !~ /^ *wlan_config_re[a-z_]+ [A-Za-z0-9_]+\([A-Za-z0-9_]+\) = [0-9]+;$/) fail("unlike a procedure: " $0)
    split($0, part, /[ ();=]+/)
    first = part[1] == "" ? 2 : 1
    result = part[first]
    name = part[first + 1]
    type = part[first + 2]
    number = part[first + 3]
    count = 0
    body = type == "void" ? "" : fill_argument(type)
    pointer = type == "void" ? "NULL" : "&argument"
    show = result == "wlan_config_return_code_e" ? "show_code" : "show_data"
    cases = cases "        case " number ": {\n            need(words, " count ");\n" body \
        "            return " show "(client, " name "_1(" pointer ", client));\n        }\n"
    ++procedures
}

END {
    if (failed) exit 1
    if (procedures == 0) fail("no procedures")
    print "#include \"wlan_config.h\"\n"
    print "#include <netdb.h>"
    print "#include <netinet/in.h>"
    print "#include <stdio.h>"
    print "#include <stdlib.h>"
    print "#include <string.h>\n"
    print "static int error(const char *text) {"
    print "    printf(\"error %s\\n\", text);"
    print "    return 1;"
    print "}\n"
    print "static void need(int words, int count) {"
    print "    if (words != count) exit(error(\"wrong number of arguments\"));"
    print "}\n"
    print "static long long integer(const char *text) { return strtoll(text, NULL, 0); }\n"
    print "static int rpc_error(CLIENT *client) {"
    print "    struct rpc_err reason;"
    print "    clnt_geterr(client, &reason);"
    print "    return error(clnt_sperrno(reason.re_status));"
    print "}\n"
    print "static int show_code(CLIENT *client, const wlan_config_return_code_e *code) {"
    print "    if (code == NULL) return rpc_error(client);"
    print "    printf(\"code %d\\n\", (int)*code);"
    print "    return 0;"
    print "}\n"
    print "static int show_data(CLIENT *client, const wlan_config_result_data_t *result) {"
    print "    if (result == NULL) return rpc_error(client);"
    print "    printf(\"code %d numbers \", (int)result->return_code);"
    print "    for (u_int i = 0; i < result->return_u_int.return_u_int_len; ++i)"
    print "        printf(i == 0 ? \"%u\" : \",%u\", result->return_u_int.return_u_int_val[i]);"
    print "    printf(\" data \");"
    print "    for (u_int i = 0; i < result->return_data.return_data_len; ++i)"
    print "        printf(\"%02x\", (unsigned char)result->return_data.return_data_val[i]);"
    print "    printf(\"\\n\");"
    print "    return 0;"
    print "}\n"
    print "static int call(CLIENT *client, unsigned number, int words, char **arguments) {"
    print "    switch (number) {"
    printf "%s", cases
    print "        default: return error(\"no such procedure\");"
    print "    }"
    print "}\n"
    print "int main(int argc, char **argv) {"
    print "    if (argc < 4) return error(\"usage: rpcgen_client HOST PORT-or-0 NUMBER ARGUMENT...\");"
    print "    struct sockaddr_in server = {0};"
    print "    const struct hostent *host = gethostbyname(argv[1]);"
    print "    if (host == NULL || host->h_addrtype != AF_INET) return error(\"unknown host\");"
    print "    server.sin_family = AF_INET;"
    print "    server.sin_port = htons((unsigned short)integer(argv[2]));"
    print "    memcpy(&server.sin_addr, host->h_addr_list[0], sizeof server.sin_addr);"
    print "    int fd = RPC_ANYSOCK;"
    print "    const struct timeval again = {1, 0};"
    print "    struct timeval patience = {5, 0};"
    print "    CLIENT *client = clntudp_create(&server, WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, again, &fd);"
    print "    if (client == NULL) return error(clnt_sperrno(rpc_createerr.cf_stat));"
    print "    clnt_control(client, CLSET_TIMEOUT, (char *)&patience);"
    print "    return call(client, (unsigned)integer(argv[3]), argc - 4, argv + 4);"
    print "}"
}
