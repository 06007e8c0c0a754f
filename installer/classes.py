"""The registry rows by which COM finds the service and its proxies, as its interface definitions tell them."""

import re

CLASS = "VdFrwkLocalController"
CLASS_TITLE = "Service framework local controller"
# The proxy library's own class has the identifier of this interface.
PROXY_INTERFACE = "IVdFrwkRemoteEvents"

_INTERFACE = re.compile(
    r"uuid\((?P<id>[0-9a-f-]+)\)[^\]]*\]\s*interface (?P<name>\w+) : (?P<base>\w+)\s*\{(?P<body>.*?)\n\}", re.DOTALL)
_CLASS = re.compile(r"\[uuid\((?P<id>[0-9a-f-]+)\)\]\s*coclass (?P<name>\w+)")
_METHODS_OF_IUNKNOWN = 3


def _braced(identifier):
    return "{" + identifier.upper() + "}"


def interfaces(idl):
    """(name, identifier, number of methods, the inherited ones included) of each interface."""
    counts = {"IUnknown": _METHODS_OF_IUNKNOWN}
    found = []
    for match in _INTERFACE.finditer(idl):
        name = match["name"]
        counts[name] = counts[match["base"]] + len(re.findall(r"\bHRESULT \w+\(", match["body"]))
        found.append((name, _braced(match["id"]), counts[name]))
    return found


def rows(idl):
    """(key below Software\\Classes, name of the value, value as the installer's tables hold it) of all of them."""
    classes = {match["name"]: _braced(match["id"]) for match in _CLASS.finditer(idl)}
    known = interfaces(idl)
    proxy = next(identifier for name, identifier, _ in known if name == PROXY_INTERFACE)
    service = rf"CLSID\{classes[CLASS]}"
    yield service, "", CLASS_TITLE
    yield rf"{service}\LocalServer32", "", '"[INSTALLDIR]VdFrwkSvc.exe"'
    yield rf"CLSID\{proxy}", "", "PSFactoryBuffer"
    yield rf"CLSID\{proxy}\InProcServer32", "", "[INSTALLDIR]VdFrwkPs.dll"
    yield rf"CLSID\{proxy}\InProcServer32", "ThreadingModel", "Both"
    for name, identifier, methods in known:
        yield rf"Interface\{identifier}", "", name
        yield rf"Interface\{identifier}\NumMethods", "", str(methods)
        yield rf"Interface\{identifier}\ProxyStubClsid32", "", proxy
