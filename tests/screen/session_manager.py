#!/usr/bin/env python3
"""A session manager of a desktop, as far as a program can see it. It prints the address that programs find in
SESSION_MANAGER, waits for a line on standard input, and ends the session: every program saves itself, and is
told to end."""
import ctypes
import select
import sys

ice = ctypes.CDLL("libICE.so.6")
sm = ctypes.CDLL("libSM.so.6")
Pointer = ctypes.c_void_p
Int = ctypes.c_int
Text = ctypes.c_char_p

for library, name, result, arguments in (
        (ice, "IceListenForConnections", Int, [Pointer, Pointer, Int, Text]),
        (ice, "IceComposeNetworkIdList", Text, [Int, Pointer]),
        (ice, "IceSetHostBasedAuthProc", None, [Pointer, Pointer]),
        (ice, "IceGetListenConnectionNumber", Int, [Pointer]),
        (ice, "IceAcceptConnection", Pointer, [Pointer, Pointer]),
        (ice, "IceConnectionNumber", Int, [Pointer]),
        (ice, "IceConnectionStatus", Int, [Pointer]),
        (ice, "IceProcessMessages", Int, [Pointer, Pointer, Pointer]),
        (ice, "IceCloseConnection", Int, [Pointer]),
        (sm, "SmsInitialize", Int, [Text, Text, Pointer, Pointer, Pointer, Int, Text]),
        (sm, "SmsGetIceConnection", Pointer, [Pointer]),
        (sm, "SmsRegisterClientReply", Int, [Pointer, Text]),
        (sm, "SmsReturnProperties", None, [Pointer, Int, Pointer]),
        (sm, "SmsSaveYourself", None, [Pointer, Int, Int, Int, Int]),
        (sm, "SmsSaveComplete", None, [Pointer]),
        (sm, "SmsInteract", None, [Pointer]),
        (sm, "SmsDie", None, [Pointer]),
        (sm, "SmsCleanUp", None, [Pointer])):
    getattr(library, name).restype = result
    getattr(library, name).argtypes = arguments

clients = []
ending = False
KEPT = []  # what C still calls
ICE_ACCEPTED = 1
SAVE_LOCAL, SAVE_BOTH, INTERACT_NONE, INTERACT_ANY = 1, 2, 0, 2


def callback(result, arguments, function):
    made = ctypes.CFUNCTYPE(result, *arguments)(function)
    KEPT.append(made)
    return ctypes.cast(made, Pointer)


def register(client, _data, _previous):
    sm.SmsRegisterClientReply(client, b"client")
    sm.SmsSaveYourself(client, SAVE_LOCAL, 0, INTERACT_NONE, 0)
    clients.append(client)
    return 1


def done(client, _data, _success):
    if ending:
        sm.SmsDie(client)
    else:
        sm.SmsSaveComplete(client)


def closed(client, _data, _count, _reasons):
    connection = sm.SmsGetIceConnection(client)
    if client in clients:
        clients.remove(client)
    sm.SmsCleanUp(client)
    ice.IceCloseConnection(connection)


CALLBACKS = [
    callback(Int, [Pointer, Pointer, Text], register),
    callback(None, [Pointer, Pointer, Int], lambda client, *_: sm.SmsInteract(client)),
    callback(None, [Pointer, Pointer, Int], lambda *_: None),
    callback(None, [Pointer, Pointer, Int, Int, Int, Int, Int], lambda *_: None),
    callback(None, [Pointer, Pointer], lambda *_: None),
    callback(None, [Pointer, Pointer, Int], done),
    callback(None, [Pointer, Pointer, Int, Pointer], closed),
    callback(None, [Pointer, Pointer, Int, Pointer], lambda *_: None),
    callback(None, [Pointer, Pointer, Int, Pointer], lambda *_: None),
    callback(None, [Pointer, Pointer], lambda client, *_: sm.SmsReturnProperties(client, 0, None)),
]


def welcome(_client, _data, mask, callbacks, _reason):
    mask[0] = (1 << len(CALLBACKS)) - 1
    for place, function in enumerate(CALLBACKS):
        callbacks[2 * place] = function
    return 1


def main():
    global ending
    error = ctypes.create_string_buffer(256)
    anybody = callback(Int, [Text], lambda _host: 1)
    start = callback(Int, [Pointer, Pointer, ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(Pointer), Pointer],
                     welcome)
    if not sm.SmsInitialize(b"test", b"1", start, None, anybody, len(error), error):
        sys.exit(error.value.decode())
    count, listeners = Int(), ctypes.POINTER(Pointer)()
    if not ice.IceListenForConnections(ctypes.byref(count), ctypes.byref(listeners), len(error), error):
        sys.exit(error.value.decode())
    doors = {}
    for place in range(count.value):
        ice.IceSetHostBasedAuthProc(listeners[place], anybody)
        doors[ice.IceGetListenConnectionNumber(listeners[place])] = listeners[place]
    print(ice.IceComposeNetworkIdList(count, listeners).decode(), flush=True)
    connections = {}
    while not ending or clients:
        ready, _, _ = select.select([*doors, *connections, *([] if ending else [sys.stdin])], [], [])
        for at in ready:
            if at is sys.stdin:
                ending = True
                for client in list(clients):
                    sm.SmsSaveYourself(client, SAVE_BOTH, 1, INTERACT_ANY, 0)
            elif at in doors:
                connection = ice.IceAcceptConnection(doors[at], ctypes.byref(Int()))
                connections[ice.IceConnectionNumber(connection)] = connection
            else:
                known = len(clients)
                closes = ice.IceProcessMessages(connections[at], None, None) != 0
                if closes or len(clients) < known:
                    del connections[at]


if __name__ == "__main__":
    main()
