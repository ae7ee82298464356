-- Dissects the protocol of wlan-configd. Made from the protocol's description: copy it into Wireshark's folder of
-- personal plugins. Keys, passphrases and PINs show as their length unless a preference says otherwise.

-- (What is made from the description stands here: program, version, longest, procedures, records.)

local wlan = Proto("wlan_config", "wlan-configd")
wlan.prefs.show_secrets = Pref.bool("Show keys, passphrases and PINs", false, "Otherwise they show as their length")

local codes = { [-1] = "failed", [0] = "done", [2] = "unchanged", [3] = "in progress" }
local refusals = { [1] = "no such program", [2] = "no such version", [3] = "no such procedure",
                   [4] = "arguments not understood", [5] = "the daemon could not answer" }

local f = {
    xid = ProtoField.uint32("wlan_config.xid", "Transaction", base.HEX),
    procedure = ProtoField.uint32("wlan_config.procedure", "Procedure"),
    name = ProtoField.string("wlan_config.name", "Name"),
    code = ProtoField.int32("wlan_config.code", "Code", base.DEC, codes),
    refused = ProtoField.uint32("wlan_config.refused", "Refused", base.DEC, refusals),
    argument = ProtoField.string("wlan_config.argument", "Argument"),
    number = ProtoField.string("wlan_config.number", "Number"),
    text = ProtoField.string("wlan_config.text", "Text"),
    field = ProtoField.string("wlan_config.field", "Field"),
    call = ProtoField.framenum("wlan_config.call", "Call in", base.NONE, frametype.REQUEST),
}
wlan.fields = f

-- The call that a transaction number of a client belongs to: {procedure number, frame}.
local calls = {}
function wlan.init() calls = {} end

local function key_of(xid, client, client_port) return xid .. "/" .. tostring(client) .. "/" .. client_port end

local function hidden(secret, length)
    return secret and not wlan.prefs.show_secrets and string.format("(%d bytes, hidden)", length) or nil
end

-- Each reads one argument at `at` and returns its text and where the next begins.
local function word(read)
    return function(range, at) return tostring(read(range(at, 4))), at + 4 end
end
local readers = {
    ["int"] = word(function(r) return r:int() end),
    ["unsigned int"] = word(function(r) return r:uint() end),
    ["unsigned short"] = word(function(r) return r:uint() end),
    ["bool"] = word(function(r) return r:uint() ~= 0 end),
    ["string"] = function(range, at, secret)
        local length = range(at, 4):uint()
        return hidden(secret, length) or '"' .. range(at + 4, length):string() .. '"', at + 4 + math.ceil(length / 4) * 4
    end,
}

local function show_call(range, tree, procedure, at)
    local shown = {}
    for _, argument in ipairs(procedure.arguments) do
        local from = at
        local text
        text, at = readers[argument[2]](range, at, argument[3])
        tree:add(f.argument, range(from, at - from), argument[1] .. "=" .. text)
        shown[#shown + 1] = argument[1] .. "=" .. text
    end
    return table.concat(shown, " ")
end

local function number_at(range, field, at)
    local signed, size = field[2]:sub(1, 1) == "i" or field[2] == "hyper" or field[2] == "char", field[3]
    local piece = range(at, size)
    if size == 8 then return tostring(signed and piece:le_int64() or piece:le_uint64()) end
    return tostring(signed and piece:le_int() or piece:le_uint())
end

local show_record

local function show_place(range, tree, field, at)
    if records[field[2]] then
        return show_record(range(at, field[3]), tree:add(wlan, range(at, field[3]), field[1]), records[field[2]])
    end
    tree:add(f.field, range(at, field[3]), field[1] .. ": " .. number_at(range, field, at))
end

-- `record`: fields as {name, type, size of one, count, offset, form, name of the field that counts}.
function show_record(range, tree, record)
    local counts = {}
    for _, field in ipairs(record) do
        local name, _, size, count, offset, form, used = table.unpack(field)
        if form == "text" then
            tree:add(f.field, range(offset, size * count), name .. ": " .. range(offset, size * count):stringz())
        elseif form == "octets" or form == "address" then
            tree:add(f.field, range(offset, size * count), name .. ": " .. tostring(range(offset, size * count):bytes()))
        else
            if count == 1 and size <= 4 and not records[field[2]] then counts[name] = range(offset, size):le_uint() end
            for i = 0, math.min(used ~= "" and counts[used] or count, count) - 1 do
                show_place(range, tree, field, offset + i * size)
            end
        end
    end
end

-- The words of an answer are big-endian; a record's bytes are made of them, each low byte first.
local function image_of(range, at, size)
    local image = ByteArray.new()
    image:set_size(size)
    for word = 0, size - 4, 4 do
        for byte = 0, 3 do image:set_index(word + byte, range(at + word + 3 - byte, 1):uint()) end
    end
    return image:tvb("numbers"):range()
end

local function show_result(range, tree, procedure, at)
    local code = range(at, 4):int()
    tree:add(f.code, range(at, 4))
    local said = codes[code] or tostring(code)
    if procedure.result == "code" or procedure.result == "none" then return said end
    local count = range(at + 4, 4):uint()
    local numbers, data = at + 8, at + 8 + 4 * count
    local length = range(data, 4):uint()
    if procedure.result == "text" and length > 0 then
        local text = hidden(procedure.secret, length - 1) or '"' .. range(data + 4, length):stringz() .. '"'
        tree:add(f.text, range(data + 4, length), text)
        return said .. " " .. text
    elseif procedure.result == "image" and length == procedure.size then
        show_record(range(data + 4, length), tree, records[procedure.record])
    elseif procedure.record and 4 * count >= procedure.size then
        show_record(image_of(range, numbers, procedure.size), tree, records[procedure.record])
    elseif count > 0 then
        local number = procedure.result == "int" and range(numbers, 4):int() or range(numbers, 4):uint()
        tree:add(f.number, range(numbers, 4), tostring(number))
        return said .. " " .. number
    end
    return said
end

local function begin(range, pinfo, tree, procedure, kind)
    pinfo.cols.protocol = "wlan-configd"
    local branch = tree:add(wlan, range, "wlan-configd " .. kind .. ": " .. procedure.name)
    branch:add(f.xid, range(0, 4))
    branch:add(f.name, procedure.name)
    return branch
end

local unknown = { name = "unknown procedure", arguments = {}, result = "none" }

local function dissect_call(range, pinfo, tree)
    if range:len() < 40 or range(8, 4):uint() ~= 2 or range(12, 4):uint() ~= program then return end
    local number = range(20, 4):uint()
    local procedure = procedures[number] or unknown
    calls[key_of(range(0, 4):uint(), pinfo.src, pinfo.src_port)] = { number, pinfo.number }
    local branch = begin(range, pinfo, tree, procedure, "call")
    branch:add(f.procedure, range(20, 4))
    local credential = range(28, 4):uint()
    local verifier = range(36 + math.ceil(credential / 4) * 4, 4):uint()
    local at = 40 + math.ceil(credential / 4) * 4 + math.ceil(verifier / 4) * 4
    pinfo.cols.info = procedure.name .. " " .. show_call(range, branch, procedure, at)
end

local function dissect_reply(range, pinfo, tree)
    local call = calls[key_of(range(0, 4):uint(), pinfo.dst, pinfo.dst_port)]
    if not call then return end
    local procedure = procedures[call[1]] or unknown
    local branch = begin(range, pinfo, tree, procedure, "reply")
    branch:add(f.call, call[2])
    local said = "denied"
    if range(8, 4):uint() == 0 then
        local status_at = 20 + math.ceil(range(16, 4):uint() / 4) * 4
        local status = range(status_at, 4):uint()
        said = refusals[status]
        if status == 0 then
            said = show_result(range, branch, procedure, status_at + 4)
        else
            branch:add(f.refused, range(status_at, 4))
        end
    end
    pinfo.cols.info = procedure.name .. ": " .. (said or "refused")
end

-- A datagram that is shorter than it announces ends in an error of its range, which Wireshark shows.
local function dissect(range, pinfo, tree)
    if range:len() < 20 then return end
    local direction = range(4, 4):uint()
    if direction == 0 then dissect_call(range, pinfo, tree) end
    if direction == 1 then dissect_reply(range, pinfo, tree) end
end

-- Behind the others: once it has seen the portmapper name the port, Wireshark's own RPC dissector claims every
-- datagram there, and shows only its bytes.
local payload = Field.new("udp.payload")
function wlan.dissector(_, pinfo, tree)
    local found = payload()
    if found then dissect(found.range, pinfo, tree) end
end
register_postdissector(wlan)
