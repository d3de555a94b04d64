"""Builds a report of one chassis; slots, ports and default timings come from the capability files in this folder."""
import json
import pathlib
import struct
import zlib
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parent
REPORTS = ROOT / "reports"
SL, DL, UHD = 0, 1, 2                                            # capacities
MASTER, BACKUP, NO_OUTPUT = 0, 1, 2                              # work modes of a port
INPUT, MAIN, AUX_OUT, MVR_OUT = 2, 4, 8, 16                      # kinds of interface
REGULAR_SCREEN, AUX_SCREEN, MVR_SCREEN = 2, 4, 8                 # kinds of screen
REGULAR, AUX, MVR, BACKGROUND, LOGO, CUT = 2, 4, 8, 16, 32, 64   # kinds of layer
PGM, PVW = 2, 4                                                  # scenes
FROM_INPUT, FROM_PGM, FROM_PVW, FROM_BKG, FROM_LOGO = 2, 3, 4, 5, 6
NO_INTERFACE = 0x0FFFFFFF
EXP_LINK, CVBS, SDI_3G, FIBER = 1, 11, 9, 18                     # connector types with a rule of their own

# Front porch, sync and total of both axes of the modes in use: DMT, CTA-861 and CVT 1.2 with reduced blanking.
MODES = {
    (720, 576, 50): ((12, 64, 864), (5, 5, 625)),
    (1024, 768, 60): ((24, 136, 1344), (3, 6, 806)),
    (1280, 720, 50): ((440, 40, 1980), (5, 5, 750)),
    (1920, 1080, 50): ((528, 44, 2640), (4, 5, 1125)),
    (1920, 1080, 59.94): ((88, 44, 2200), (4, 5, 1125)),
    (1920, 1080, 60): ((88, 44, 2200), (4, 5, 1125)),
    (1920, 1200, 60): ((48, 32, 2080), (3, 6, 1235)),
    (2560, 1440, 60): ((48, 32, 2720), (3, 5, 1481)),
    (2560, 1600, 60): ((48, 32, 2720), (3, 6, 1646)),
    (3840, 1080, 60): ((48, 32, 4000), (3, 10, 1111)),
    (3840, 2160, 30): ((176, 88, 4400), (8, 10, 2250)),
    (3840, 2160, 60): ((176, 88, 4400), (8, 10, 2250)),
}


def number(element, name, default=0):
    """The number in an attribute or in the text of a child."""
    text = element.get(name) if element.get(name) is not None else element.findtext(name)
    return default if text is None else int(text)


# ---------------------------------------------------------------------------------- capability files
INTERFACES = ElementTree.parse(ROOT / "QuorixInterfaceCfg.xml").getroot()
CARDS = {number(card, "ModelID"): card for kind in ("InputCards", "OutputCards", "ExpCards", "AuxCards")
         for card in INTERFACES.find(kind)}
AUX_CARDS = {number(card, "ModelID") for card in INTERFACES.find("AuxCards")}
CONNECTORS = {number(connector, "Type"): connector for connector in INTERFACES.find("Connectors")}
CHASSIS = {int(root.findtext("ModelID")): root
           for root in (ElementTree.parse(path).getroot() for path in sorted((ROOT / "devices").glob("*.xml")))}


def layout(card, chosen):
    """The ports of a card by position; chosen maps a capacity group to (capacity, connector group)."""
    result = {}
    for group in CARDS[card].find("CapacityGroups"):
        wanted = chosen.pop(number(group, "Value"), None)
        for capacity in group:
            for connectors in capacity:
                if wanted:
                    taken = wanted == (number(capacity, "Value"), number(connectors, "Value"))
                else:
                    taken = number(capacity, "Enable") and number(connectors, "Enable")
                if taken:
                    result.update({number(port, "Position"): port for port in connectors})
    assert not chosen, f"card {card} has no such capacity group: {chosen}"
    return dict(sorted(result.items()))


def default_mode(kind, capacity, direction):
    """The preset mode of a connector type in a direction (1 input, 2 output)."""
    limits = next(entry for cards in CONNECTORS[kind].find("CapacityMode") if number(cards, "Value") == direction
                  for entry in cards if number(entry, "Value") == capacity)
    return number(limits, "Width"), number(limits, "Height"), number(limits, "RefreshRate")


# ------------------------------------------------------------------------------------------- records
def packed(slot, connector):
    return slot << 16 | connector << 8


def gbk(name):
    return name.encode("gbk").hex().upper()


def timing(mode, interlaced=0):
    def axis(active, porches):
        front, sync, total = porches
        return {"addTime": active, "frontPorch": front, "sync": sync, "syncPolarity": int(active > 0),
                "totalTime": total}

    width, height, rate = mode or (0, 0, 0)
    horizontal, vertical = MODES[mode] if mode else ((0, 0, 0), (0, 0, 0))
    return {"interlaced": interlaced, "refresh": round(rate * 100),
            "horizontal": axis(width, horizontal), "vertical": axis(height, vertical)}


def rect(x, y, width, height):
    return {"x": x, "y": y, "width": width, "height": height}


def rgb(red, green, blue, **more):
    return {"R": red, "G": green, "B": blue, **more}


def pattern(kind=65535, enable=0):
    return {"enable": enable, "type": kind, "bright": 2, "grid": 4, "speed": 3, "gridLineWidth": 1, "gridType": 0}


def quality(gamma=100):
    channels = {"all": 50, **rgb(50, 50, 50)}
    return {"contrast": channels, "brightness": channels, "hue": 0, "saturation": 50, "gamma": gamma}


def hdr(gamut, preset, actual=255):
    def dynamic_range(kind):
        peak = {"toneMapping": 0, "screenPeakBrightness": 1000, "ambientLight": 30, "pqMaxCll": 1000}
        return {"type": kind, "SDR": {"Gamma": 220}, "HDR10": peak, "HLG": {"ambientLight": 0, "grade": 5}}

    return {"colorGamut": {"actualColorGamut": 0, "presetColorGamut": gamut},
            "dynamicRange": {"actualDynamicRange": dynamic_range(actual), "presetDynamicRange": dynamic_range(preset)}}


def crop(source=0, kind=0, enable=0, width=100000, height=100000, x=0, y=0):
    return {"id": source, "type": kind, "enable": enable,
            "widthRatio": width, "heightRatio": height, "xRatio": x, "yRatio": y}


def feathers(**widths):
    return [{"enable": int(edge in widths), "type": kind, "gamma": 220, "width": widths.get(edge, 0)}
            for edge, kind in (("top", 0), ("left", 2), ("right", 3), ("bottom", 1))]


def border(kind, width, colour, enable=1):
    return {"enable": enable, "type": kind, "size": {"hWidth": width, "vWidth": width},
            "color": rgb(*colour, opacity=100)}


def sparse(record, usual):
    """The record without what equals the usual one: a reader keeps its default where a key is absent."""
    return {key: sparse(value, usual[key]) if isinstance(value, dict) and isinstance(usual.get(key), dict) else value
            for key, value in record.items() if value != usual.get(key)}


NO_CUT_FILL = {"enable": 0, "isBinding": 0}
CUTOUT = {"enable": 0, "type": 0, "brightness": {"threshold": 0, "gain": 0},
          "hue": {"background": 0, "foreground": 0, "color": rgb(50, 50, 50)}}
LAYER_LOOK = {"mask": {"enable": 0, "left": 0, "right": 0, "top": 0, "bottom": 0},
              "testColor": {"enable": 0, **rgb(0, 0, 0)}, "opacity": 100, "imageQuality": quality(220),
              "shadow": {"general": {"enable": 0, "feather": 0}, "window": rect(0, 0, 1920, 1080),
                         "color": rgb(50, 50, 50, opacity=100)},
              "border": border(0, 2, (50, 50, 50), enable=0), "UMD": []}
SCREEN_LOOK = {"imageQuality": quality(), "freeze": 0, "FTB": {"enable": 0, "time": 0}, "testPattern": pattern(),
               "switchEffect": {"time": 5, "direction": 0, "type": 1}, "tbar": {"percent": 0}, "HDR": hdr(1, 0),
               "screenNoVS": {"enable": 0, "status": 0}}
# What a reader supplies by itself, as far as the sparse form makes use of it.
USUAL = LAYER_LOOK | {"colorRanges": {"actualColorRange": 0, "presetColorRange": 255}, "testPattern": pattern(),
                      "crop": crop(), "cutFill": NO_CUT_FILL, "selected": 0, "freeze": 0, "formatMapping": 0,
                      "HDR": hdr(255, 255), "actualTiming": timing(None), "cutoutGeneral": CUTOUT, "PGMEdit": 0,
                      "backgroundColor": rgb(50, 50, 50), "testColor": {"enable": 0, **rgb(50, 50, 50)}}


class Report:
    """One chassis, filled step by step; every step checks what it refers to."""

    def __init__(self, model, name, address, version, serial, master=200):
        """master: the last byte of the address of the station that controls the chassis; ours has 200."""
        self.chassis, self.model = CHASSIS[model], model
        self.subcards, self.interfaces, self.screens, self.layers = {}, {}, {}, {}
        self.files, self.contents = [], {}
        mac = [0x02, 0x1A, 0x5C] + list(serial.to_bytes(3, "big"))
        net = [int(part) for part in address.split(".")]
        stations = [{"ip4": station, "ip3": net[2], "ip2": net[1], "ip1": net[0],
                     "ClinentControlAllowed": int(station == master)} for station in sorted({200, master})]
        self.base = {
            "ProbePort": 3800, "ModelId": model, "SN": list(serial.to_bytes(8, "big")), "MAC": mac,
            "MainControlVersion": version, "UDPProtocolVersion": 2, "ProtocolVersion": 3, "RemoteCtrlPort": 3801,
            "MaxDataLengthPerPacket": 1400, "DeviceName": name, "ClientIps": stations, "IsQuorix": 1,
            "RemoteIp": address, "LocalIp": f"{net[0]}.{net[1]}.{net[2]}.200", "LocalCtrlPort": 50100}
        network = {"index": 0, "MAC": bytes(mac).hex().upper(), "dhcp": 0, "ip": address, "subnetMask": "255.255.255.0",
                   "gateway": f"{net[0]}.{net[1]}.{net[2]}.1"}
        self.detail = {
            "general": {"name": name, "status": 1}, "swap": 1, "genlock": {"type": 0, "interfaceId": NO_INTERFACE},
            "genlockSignal": {"extSignalIn": 0, "status": 0}, "powers": [{"powerId": 0, "iSignal": 1, "status": 1}],
            "subcards": [], "networks": [network], "dynamicRangConversion": {"enable": 0, "type": 0},
            "interfaceMapping": {"general": {"type": 0}, "testPattern": pattern(768)}, "groupInfos": [],
            "noVSEnable": 0, "interfaceRelation": {"enable": 0, "relation": []}, "presetApplyType": 0}

    def positions(self, kind):
        """The slot and connector of each multiviewer or AUX screen of the chassis."""
        return [(number(entry, "SlotIndex"), number(entry, "ConnectorIndex"))
                for entry in self.chassis.find(f"Screens/{kind}")]

    def in_range(self, kind, slot):
        cards = self.chassis.find(kind)
        return cards is not None and 0 <= slot - number(cards, "StartSlotIndex") < number(cards, "SlotCount")

    def card(self, slot, model, online=1, mvr=False, idle=(), modes=None, **chosen):
        """Puts a card in a slot.

        chosen: g0=(capacity, connector group) for capacity group 0, and so on; idle: ports without signal;
        modes: the live mode of a port where it is not the preset one; mvr: the card serves as multiviewer.
        """
        kinds = {"InputCards": 2, "OutputCards": 5 if mvr else 3, "ExpCards": 6 if model in AUX_CARDS else 1}
        place = next(kind for kind in kinds if self.in_range(kind, slot))
        entries = self.chassis.find("MvrCards" if mvr else place)
        allowed = [number(card, "ModelID") for card in entries if number(card, "Enable")]
        assert model in allowed and slot not in self.subcards, f"card {model} in slot {slot}"
        ports = layout(model, {int(group[1:]): wanted for group, wanted in chosen.items()})
        connectors = []
        for position, port in ports.items():
            kind = self.port_kind(place, mvr, (slot, position))
            idle_mvr = kind == MVR_OUT and (slot, position) not in self.positions("MvrScreens")
            work = NO_OUTPUT if idle_mvr else number(port, "WorkMode")
            copied = packed(slot, self.master(ports, position)) if work == BACKUP else NO_INTERFACE
            connectors.append({"id": position, "type": number(port, "Type"), "copyId": copied, "workMode": work,
                               "capacityMode": number(port, "Capacity")})
            if number(port, "Visible", 1) and number(port, "Type") not in (EXP_LINK, FIBER):
                silent = online != 1 or position in idle
                self.interface(slot, position, kind, port, silent, (modes or {}).get(position))
        self.subcards[slot] = {"slotId": slot, "modelId": model, "boardId": 0, "cardType": kinds[place],
                               "online": online, "connectors": connectors}
        return self

    def port_kind(self, place, mvr, position):
        if place == "InputCards":
            return INPUT
        if place == "ExpCards" or mvr and position in self.positions("AuxScreens"):
            return AUX_OUT
        return MVR_OUT if mvr else MAIN

    @staticmethod
    def master(ports, position):
        """The port that a copy repeats: the one with the same printed number, else the nearest before it."""
        masters = [entry for entry, port in ports.items() if number(port, "WorkMode") == MASTER]
        printed = number(ports[position], "PrintKeyNo", position)
        same = [entry for entry in masters if number(ports[entry], "PrintKeyNo", entry) == printed]
        return (same or [entry for entry in masters if entry < position])[-1]

    def interface(self, slot, position, kind, port, silent, live):
        """An input or output with its preset mode, and with live or the preset one in force unless it is silent."""
        side = "Input" if kind == INPUT else "Output"
        connector, direction = CONNECTORS[number(port, "Type")], 1 if kind == INPUT else 2
        mode = default_mode(number(port, "Type"), number(port, "Capacity"), direction)
        hdcp = next(entry for entry in connector.find("CardSort") if number(entry, "Value") == direction)
        wanted = number(hdcp, "CurrentHDCPOnMaxCapacity" if port.findtext("NameOnMaxCapacity") else "CurrentHDCP")
        if kind == AUX_OUT:
            name = f"AUX {1 + sum(entry['general']['type'] == AUX_OUT for entry in self.interfaces.values())}"
        else:
            first = number(self.chassis.find(f"{side}Cards"), "StartSlotIndex")
            name = f"{side} {slot - first + 1}-{number(port, 'PrintKeyNo', position) + 1}"
        depth, space = number(connector, "ColorDepth"), number(connector, "ColorSpace")
        interlaced = int(number(port, "Type") == CVBS and not silent)
        self.interfaces[packed(slot, position)] = {
            "interfaceId": {"slotId": slot, "connectorId": position, "splitId": 0},
            "general": {"name": name, "nameGB2312": gbk(name), "type": kind},
            "colorDepths": {"actualColorDepth": 0 if silent else depth, "presetColorDepth": depth},
            "colorSpaces": {"actualColorSpace": 0 if silent else space, "presetColorSpace": space},
            "colorRanges": {"actualColorRange": int(not silent and space == 0), "presetColorRange": 255},
            "formatMapping": int(number(port, "Type") == SDI_3G),
            "HDR": hdr(255, 255) if kind == INPUT else hdr(1, 0),
            "HDCP": {"enable": number(hdcp, "HDCPSwitch"), "presetType": wanted,
                     "actualType": 0 if silent else wanted},
            "testPattern": pattern(), "presetTiming": timing(mode),
            "actualTiming": timing(None if silent else live or mode, interlaced),
            "imageQuality": quality(), "crop": crop(), "cutoutGeneral": CUTOUT}

    def mosaic(self, kind, outputs, columns, overlap):
        """Equal outputs, row by row; neighbours in a row may overlap by some feathered pixels."""
        first = self.interfaces[packed(*outputs[0])]
        width, height = (first["presetTiming"][axis]["addTime"] for axis in ("horizontal", "vertical"))
        taken = [entry["interfaceId"] for screen in self.screens.values() for entry in screen["mosaic"]["outputs"]]
        wanted = {REGULAR_SCREEN: MAIN, AUX_SCREEN: AUX_OUT, MVR_SCREEN: MVR_OUT}[kind]
        entries = []
        for place, position in enumerate(outputs):
            output, column = self.interfaces[packed(*position)], place % columns
            assert output["general"]["type"] == wanted and output["interfaceId"] not in taken, f"output {position}"
            assert output["presetTiming"] == first["presetTiming"], f"output {position} is of another size"
            inner = {"left": column > 0, "right": column < columns - 1}
            entries.append({"interfaceId": output["interfaceId"],
                            "pos": {"x": column * (width - overlap), "y": place // columns * height},
                            "crop": rect(0, 0, width, height),
                            "feather": feathers(**{edge: overlap for edge in inner if overlap and inner[edge]})})
        shared = {key: first[key] for key in ("colorDepths", "colorSpaces", "colorRanges", "formatMapping")}
        rows = len(outputs) // columns
        return {"type": 2, "splice": {"row": rows, "column": columns},
                "window": rect(0, 0, columns * width - (columns - 1) * overlap, rows * height),
                "refOutputPara": shared | {"timing": first["presetTiming"]}, "outputs": entries}

    def screen(self, name, outputs, columns, kind=REGULAR_SCREEN, splice=2, overlap=0, **changes):
        """Adds a screen and gives its key; changes replace fields of its record."""
        index, key = len(self.screens), (kind, sum(other[0] == kind for other in self.screens))
        mosaic = self.mosaic(kind, outputs, columns, overlap) | {"type": splice}
        step = 40 * number(self.chassis.find("OutputCards"), "SlotCount") * (index + 1)
        self.screens[key] = {
            "screenId": key[1], "screenType": kind, "general": {"name": name, "nameGB2312": gbk(name), "index": index},
            "mosaic": mosaic, "backgroundColor": rgb(50, 50, 50), "layout": {"x": step, "y": step},
            "physicalSize": {"dotPitch": 0, "unit": 0} | {axis: mosaic["window"][axis] for axis in ("width", "height")},
            "PGMEdit": int(kind != REGULAR_SCREEN), "selected": 0} | SCREEN_LOOK | changes
        return key

    def interest(self, screen, areas):
        """Narrows outputs of a mosaic, by place, to (x, y, width, height) of their frame; the window follows."""
        record = self.screens[screen]
        outputs = record["mosaic"]["outputs"]
        for place, area in areas.items():
            outputs[place]["crop"] = rect(*area)
        shown = [(output["pos"]["x"] + output["crop"]["x"], output["pos"]["y"] + output["crop"]["y"],
                  output["crop"]["width"], output["crop"]["height"]) for output in outputs]
        left, top = (min(area[axis] for area in shown) for axis in (0, 1))
        width, height = (max(area[axis] + area[axis + 2] for area in shown) - (left, top)[axis] for axis in (0, 1))
        record["mosaic"]["window"] = rect(left, top, width, height)
        record["physicalSize"].update(width=width, height=height)
        return left, top, width, height

    def layer(self, screen, scene, source, window=None, kind=REGULAR, zoom=None, **changes):
        """Adds a layer, which fills its screen without a window.

        source: (FROM_INPUT, (slot, connector)) or (FROM_..., id); zoom: width, height, x and y of its crop in
        hundred-thousandths; changes replace fields of its record.
        """
        origin, identity = source
        if origin == FROM_INPUT:
            identity = packed(*identity)
            assert self.interfaces[identity]["general"]["type"] == INPUT
        elif origin in (FROM_PGM, FROM_PVW):
            assert (REGULAR_SCREEN, identity) in self.screens
        else:
            assert ({FROM_BKG: 0, FROM_LOGO: 2}[origin], identity) in self.contents
        bounds = self.screens[screen]["mosaic"]["window"]
        window = rect(*window) if window else dict(bounds)
        for start, extent in (("x", "width"), ("y", "height")):
            inside = 0 <= window[start] - bounds[start] <= bounds[extent] - window[extent]
            assert inside, f"{window} is not on screen {screen}"
        in_scene = [key for key in self.layers if key[:2] == screen and key[4] == scene]
        layer_id = sum(key[3] == (REGULAR if kind == CUT else kind) for key in in_scene) - (kind == CUT)
        prefix = {AUX: "AUX Layer", MVR: "MVR", BACKGROUND: "BKG", LOGO: "LOGO"}.get(kind, "Layer")
        crops = [crop(identity, origin, *((1,) + zoom if zoom else ()))] if origin == FROM_INPUT else []
        self.layers[screen + (layer_id, kind, scene)] = {
            "layerIdenti": {"screenId": screen[1], "screenType": screen[0], "layerId": layer_id, "layerType": kind,
                            "sceneType": scene},
            "cutFill": NO_CUT_FILL, "zorder": len(in_scene), "selected": 0,
            "general": {"name": f"{prefix} {layer_id + 1}", "isBackground": 0, "isFreeze": 0, "isMonochrome": 0,
                        "isInverse": 0, "flipType": 0},
            "source": {"general": {"type": origin, "id": identity}, "crop": crops},
            "window": window} | LAYER_LOOK | changes

    def file(self, kind, identity, name, content, width=0, height=0):
        """Adds a file: its record, and its content (bytes or a document) in a folder named after the report."""
        data = content if isinstance(content, bytes) else (compact(content) + "\n").encode()
        size = {"length": len(data), "hashSum": zlib.crc32(data) & 0x7FFFFFFF, "width": width, "height": height}
        self.files.append({"fileId": identity, "fileType": kind, "general": {"name": name},
                           "source": {"id": 0, "type": 0, "zoomRatio": 1}, "size": size})
        stem = {0: "bkg", 2: "logo", 6: "preset", 12: "keypad", 18: "userkey"}[kind]
        self.contents[kind, identity] = f"{stem}-{identity}.{'bin' if isinstance(content, bytes) else 'json'}", data

    def image(self, kind, identity, name, width, height, tint):
        """A diagonal ramp as tagged little-endian records: the size, then pixels as blue, green, red, alpha."""
        pixels = bytearray()
        for x, y in ((x, y) for y in range(height) for x in range(width)):
            level = 128 * (x * height + y * width) // (width * height)
            opaque = kind == 0 or abs(x - y) < height // 2
            pixels += bytes([part * level // 256 for part in tint] + [255 if opaque else 0])
        head = struct.pack("<5I", 1, 12, 1, width, height) + struct.pack("<2I", 0xFFFFFFFF, len(pixels))
        self.file(kind, identity, name, head + bytes(pixels), width, height)

    def preset(self, identity, screens, scene=PVW):
        """A preset of the present layers of some screens."""
        name = f"Preset {identity}"
        shown = [{"screenId": key[1], "screenType": key[0], "enable": 1, "general": self.screens[key]["general"],
                  "mosaic": self.screens[key]["mosaic"]} for key in screens]
        layers = [layer for key, layer in self.layers.items() if key[:2] in screens and key[4] == scene]
        self.file(6, identity, name,
                  {"presetId": identity, "name": name, "startTime": 0, "screens": shown, "layers": layers})

    def user_key(self, identity, layer, cut):
        """A user key with looks of a layer and of a cut layer, both by key."""
        parts = ("Sources", "CutFill", "Flip", "Border", "Mask", "Rect", "Pos", "Color", "InputCrop", "NoSourceLayer",
                 "NoSourceLayerColor")
        applied = {f"bLayer{part}Body": int(part in ("Border", "Mask", "Rect")) for part in parts}
        name = f"User Key{identity:03}"
        self.file(18, identity, name, {
            "layerFullDetail": self.layers[layer], "cutLayerFullDetail": self.layers[cut], "name": name,
            "userKeyId": identity, "userKeyColor": identity, **applied})
        return self

    def keypad(self, screens, pvw, pgm, keys):
        """The keypad: the presets that were loaded last, on which screens, and the colours of its keys."""
        shown = [{"screenId": screen, "screenType": kind} for kind, screen in screens]
        loaded = {"lastPVWPreset": pvw, "lastPGMPreset": pgm, "pvwScn": shown, "pgmScn": shown}
        buttons = [{"modelId": key, "modelType": 1, "buttonId": key, "buttonColor": key % 4}
                   for key in range(1, keys + 1)]
        self.file(12, 0, "Keypad", {"presetInfo": loaded, "keypadArray": buttons})

    def backup(self, *pairs):
        """Hot-backup pairs of inputs of one capacity, the first one in force."""
        capacities = {packed(slot, port["id"]): port["capacityMode"]
                      for slot, card in self.subcards.items() for port in card["connectors"]}
        relations = []
        for first, second in ((packed(*a), packed(*b)) for a, b in pairs):
            assert capacities[first] == capacities[second]
            relations.append({"type": 0, "interfaceA": first, "interfaceB": second, "actualInterface": first})
        self.detail["interfaceRelation"] = {"enable": 1, "relation": relations}

    def write(self, stem, sparsely=False):
        """Writes the report, a record on a line, and the contents of its files."""
        def lines(records):
            shown = [sparse(record, USUAL) for record in records] if sparsely else list(records)
            return "[\n" + ",\n".join("  " + compact(record) for record in shown) + "\n ]" if shown else "[]"

        self.detail["subcards"] = [self.subcards[slot] for slot in sorted(self.subcards)]
        parts = {"modelId": str(self.model), "baseInfo": compact(self.base), "detail": compact(self.detail),
                 "interfaces": lines(self.interfaces.values()), "screens": lines(self.screens.values()),
                 "layers": lines(self.layers.values()), "files": lines(self.files),
                 "mapping": compact(self.detail["interfaceMapping"])}
        if self.contents:
            parts["contents"] = lines({"fileId": identity, "fileType": kind, "path": f"{stem}/{name}"}
                                      for (kind, identity), (name, _) in self.contents.items())
            (REPORTS / stem).mkdir(parents=True, exist_ok=True)
            for name, data in self.contents.values():
                (REPORTS / stem / name).write_bytes(data)
        text = "{\n" + ",\n".join(f' "{key}": {value}' for key, value in parts.items()) + "\n}\n"
        (REPORTS / f"{stem}.json").write_text(text, encoding="utf-8")


def compact(record):
    return json.dumps(record, ensure_ascii=False, separators=(",", ":"))


def tiles(window, columns, rows, gap=0):
    """The cells of a grid in a window, row by row, as (x, y, width, height)."""
    x, y, width, height = window
    cell = width // columns, height // rows
    return [(x + column * cell[0] + gap, y + row * cell[1] + gap, cell[0] - 2 * gap, cell[1] - 2 * gap)
            for row in range(rows) for column in range(columns)]
