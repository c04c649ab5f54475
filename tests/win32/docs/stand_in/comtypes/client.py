"""CreateObject as late-bound comtypes offers it; each call goes to the bridge program under Wine.

QUILL_BRIDGE is the command that starts the bridge; host/win32/bridge/main.cpp tells the language.
"""
import os
import shlex
import subprocess
from urllib.parse import unquote

from comtypes import COMError

_bridge = subprocess.Popen(shlex.split(os.environ["QUILL_BRIDGE"]), text=True, bufsize=1,
                           stdin=subprocess.PIPE, stdout=subprocess.PIPE)


def _escaped(text):
    return "".join(c if c.isalnum() and c.isascii() else "".join("%%%02X" % b for b in c.encode())
                   for c in text)


def _words(value):
    if value is None:
        return ["n"]
    if isinstance(value, bool):
        return ["b%d" % value]
    if isinstance(value, int):
        return ["i%d" % value]
    if isinstance(value, (list, tuple)):
        return ["a%d" % len(value)] + [word for element in value for word in _words(element)]
    if isinstance(value, _Held):
        return [value._id]
    return ["s" + _escaped(value)]


def _value(words):
    word = words.pop(0)
    kind, rest = word[0], word[1:]
    if kind == "s":
        return unquote(rest)
    if kind == "i":
        return int(rest)
    if kind == "b":
        return rest == "1"
    if kind == "a":
        return tuple(_value(words) for _ in range(int(rest)))
    return _Held(word) if kind == "o" else None


def _ask(*words):
    _bridge.stdin.write(" ".join(words) + "\n")
    answer = _bridge.stdout.readline().split()
    if not answer:
        raise EOFError("the bridge ended")
    if answer[0] == "error":
        raise COMError(int(answer[1]), unquote(answer[2]) if answer[2:] else "", None)
    return _value(answer)


class _Held:
    """An object whose members are called, or a record whose fields are read."""

    def __init__(self, identifier):
        self._id = identifier

    def __getattr__(self, name):
        try:
            return _ask("field", self._id[1:], _escaped(name))
        except COMError:
            return lambda *values: _ask("call", self._id[1:], _escaped(name),
                                        *[word for value in values for word in _words(value)])

    def __del__(self):
        if _bridge.poll() is None:
            _ask("release", self._id[1:])


def CreateObject(progid, dynamic=False):
    assert dynamic, "the stand-in is late-bound only"
    return _ask("create", _escaped(progid))
