#!/usr/bin/env python3
"""Writes the sample reports in reports/: small chassis, studios and a full rack. Every run gives the same files."""
import sys

sys.dont_write_bytecode = True                  # leave no cache beside the data
from report_builder import *

BOUND = {"enable": 1, "isBinding": 1}           # a cut layer tied to its fill layer


def inputs(*positions):
    return [(FROM_INPUT, position) for position in positions]


def birch_mini():
    report = Report(29964, "Foyer", "192.168.0.11", 0x01010000, 0x000B01)
    report.card(0, 30464, idle=(3,)).card(1, 30473, modes={1: (1920, 1200, 60)}).card(2, 30528).card(3, 30533)
    wall = report.screen("Screen 1", [(2, 0), (2, 1)], columns=2, selected=1)
    desk = report.screen("Screen 2", [(3, 0)], columns=1)
    for scene in (PGM, PVW):
        report.layer(wall, scene, (FROM_INPUT, (0, 0)))
        report.layer(wall, scene, (FROM_INPUT, (1, 0)), (2400, 60, 1280, 720), border=border(0, 4, (255, 255, 255)))
    report.layer(desk, PVW, (FROM_INPUT, (0, 1)))
    report.layer(desk, PGM, (FROM_INPUT, (1, 1)), (320, 180, 1280, 720), zoom=(50000, 50000, 25000, 25000))
    report.write("birch-mini", sparsely=True)


def alder():
    report = Report(29953, "Studio A", "192.168.0.12", 0x03020001, 0x000A17)
    report.card(0, 30464, modes={2: (1024, 768, 60)}).card(1, 30465, idle=(2, 3), modes={1: (1920, 1080, 59.94)})
    report.card(2, 30471, g0=(DL, 0)).card(3, 30470).card(4, 30469, g0=(UHD, 0)).card(5, 30466, online=0)
    report.card(6, 30529).card(7, 30529, g0=(DL, 0)).card(8, 30530, g0=(UHD, 0)).card(10, 30531)
    report.card(11, 30535, mvr=True).card(12, 30600).card(13, 30592)
    report.detail["groupInfos"] = [{"groupName": "Studios", "groupId": "1"}]
    report.image(0, 0, "BKG-1", 64, 36, (255, 96, 32))

    wall = report.screen("Screen 1", [(6, port) for port in range(4)], 2, splice=8, selected=1, tbar={"percent": 40})
    banner = report.screen("Screen 2", [(7, 0), (7, 2)], columns=1, splice=8)
    stage = report.screen("舞台", [(8, 0)], columns=1, splice=8, freeze=1)
    host = report.screen("AuxScreen 1", [(11, 2)], columns=1, kind=AUX_SCREEN)
    record = report.screen("AuxScreen 2", [(12, 0), (12, 1)], columns=2, kind=AUX_SCREEN)
    monitor = report.screen("MVR 1", [(11, 0)], columns=1, kind=MVR_SCREEN)

    for scene in (PGM, PVW):
        report.layer(wall, scene, (FROM_BKG, 0), kind=BACKGROUND)
        report.layer(wall, scene, (FROM_INPUT, (4, 0)))
        report.layer(banner, scene, (FROM_INPUT, (2, 0)), (0, 0, 3840, 1080))
        report.layer(stage, scene, (FROM_INPUT, (4, 0)))
    report.layer(wall, PVW, (FROM_INPUT, (0, 0)), (2240, 120, 1440, 810), selected=1,
                 border=border(3, 16, (32, 160, 255)))
    report.layer(wall, PVW, (FROM_INPUT, (0, 1)), (160, 1320, 1280, 720), cutFill=BOUND)
    report.layer(wall, PVW, (FROM_INPUT, (0, 2)), (160, 1320, 1280, 720), kind=CUT, cutFill=BOUND)
    report.layer(banner, PVW, (FROM_INPUT, (3, 0)), (0, 1080, 1920, 1080), opacity=60)
    report.layer(banner, PVW, (FROM_INPUT, (5, 0)), (1920, 1080, 1920, 1080))
    report.layer(host, PGM, (FROM_PGM, 0), kind=AUX)
    report.layer(record, PGM, (FROM_INPUT, (1, 0)), kind=AUX)
    label = {"index": 0, "enable": 1, "color": {"foregroundColor": rgb(178, 178, 178, opacity=100),
                                                "backgroundColor": rgb(0, 0, 0, opacity=100)}}
    frames = {FROM_INPUT: (48, 107, 178), FROM_PGM: (192, 36, 37), FROM_PVW: (18, 134, 2)}
    pictures = [(FROM_PGM, 0), (FROM_PVW, 0), (FROM_PGM, 1)] + inputs((0, 0), (1, 0), (4, 0))
    for cell, picture in zip(tiles((0, 0, 1920, 1080), 3, 2), pictures):
        report.layer(monitor, PGM, picture, cell, kind=MVR, border=border(0, 2, frames[picture[0]]), UMD=[label])
    report.backup(((0, 0), (0, 1)))
    report.preset(1, [wall, banner])
    report.write("alder")


def alder_max():
    report = Report(29959, "主会场", "192.168.0.20", 0x04030002, 0x00AA01)
    # The last port of the third card receives more than a single link can take: an overload.
    report.card(0, 30464).card(1, 30464, g0=(DL, 1))
    report.card(2, 30465, modes={3: (2560, 1440, 60)}).card(3, 30465, idle=(3,))
    report.card(4, 30466, modes={1: (1920, 1080, 50), 2: (1280, 720, 50)}).card(5, 30467, g0=(SL, 2), idle=(3,))
    report.card(6, 30469, g0=(UHD, 0), g1=(UHD, 0), g2=(DL, 0), modes={1: (3840, 2160, 30), 2: (2560, 1600, 60)})
    report.card(7, 30468, g0=(UHD, 0)).card(8, 30474, g1=(UHD, 1)).card(9, 30472, g0=(DL, 0))
    report.card(10, 30473, g0=(UHD, 0)).card(11, 30476, idle=(1,))
    for slot, model in ((12, 30529), (13, 30529), (14, 30529), (15, 30534), (16, 30532), (20, 30533)):
        report.card(slot, model)
    report.card(17, 30528, g0=(SL, 1))
    report.card(18, 30530, g0=(UHD, 0), g1=(UHD, 0)).card(19, 30531, g0=(UHD, 0), g1=(UHD, 0))
    report.card(21, 30528, mvr=True).card(22, 30600).card(23, 30601)
    report.detail["powers"].append({"powerId": 1, "iSignal": 1, "status": 1})
    report.detail["groupInfos"] = [{"groupName": "Studios", "groupId": "1"}]
    report.detail["genlock"] = {"type": 2, "interfaceId": packed(4, 0)}
    report.detail["genlockSignal"] = {"extSignalIn": 1, "status": 2}
    report.interfaces[packed(6, 0)]["HDR"] = hdr(255, 255, actual=1)
    report.interfaces[packed(2, 1)]["crop"] = crop(enable=1, width=80000, height=80000, x=10000, y=10000)
    report.image(0, 0, "BKG-1", 64, 36, (255, 96, 32))
    report.image(0, 1, "BKG-2", 64, 36, (32, 192, 255))
    report.image(2, 0, "LOGO-1", 64, 64, (64, 255, 64))

    ports = range(4)
    rows = [(slot, port) for slot in (12, 13, 14) for port in ports]
    wall = report.screen("Main Wall", rows, columns=4, splice=4, selected=1)
    stage = report.screen("Stage Blend", [(15, port) for port in ports], columns=4, splice=8, overlap=192)
    side = report.screen("Side Wall", [(16, port) for port in ports], columns=2, splice=4, selected=1)
    banner = report.screen("LED Banner", [(18, 0), (18, 1)], columns=2, splice=4)
    tower = report.screen("灯塔", [(19, 0), (19, 2)], columns=1, splice=4, testPattern=pattern(7, enable=1))
    desk = report.screen("Confidence", [(17, 0), (17, 2)], columns=2, splice=4)
    lobby = report.screen("Lobby", [(20, 0)], columns=1, splice=8)
    front = report.screen("AuxScreen 1", [(21, 1)], columns=1, kind=AUX_SCREEN)
    record = report.screen("AuxScreen 2", [(22, 0), (22, 1)], columns=2, kind=AUX_SCREEN)
    stream = report.screen("AuxScreen 3", [(23, 0)], columns=1, kind=AUX_SCREEN)
    monitor = report.screen("MVR 1", [(21, 0)], columns=1, kind=MVR_SCREEN)
    # Areas of interest: the last column of the wall is narrower, the stage is masked at both ends, the lobby has only
    # the middle of its output.
    _, _, width, height = report.interest(wall, {place: (0, 0, 1600, 1080) for place in (3, 7, 11)})
    canvas = report.interest(stage, {0: (384, 0, 1536, 1080), 3: (0, 0, 1536, 1080)})
    report.interest(lobby, {0: (240, 0, 1440, 1080)})

    # On air the wall has a full grid. PVW has a 4K picture with a caption keyed into it and seven small ones; above
    # them lies the one that the operator has in hand, cropped and framed.
    report.layer(wall, PGM, (FROM_BKG, 0), kind=BACKGROUND)
    pictures = inputs(*((slot, port) for slot in (0, 2, 4) for port in ports))
    for cell, picture in zip(tiles((0, 0, width, height), 4, 3), pictures):
        report.layer(wall, PGM, picture, cell)
    report.layer(wall, PVW, (FROM_BKG, 1), kind=BACKGROUND)
    report.layer(wall, PVW, (FROM_INPUT, (6, 0)), (40, 40, 3760, 2115), border=border(0, 8, (255, 255, 255)))
    cells = tiles((3840, 0, width - 3840, 2160), 2, 2, gap=20) + tiles((0, 2160, width, 1080), 4, 1, gap=20)[:3]
    for cell, picture in zip(cells, inputs((0, 0), (0, 1), (0, 2), (0, 3), (2, 0), (2, 1), (3, 0))):
        report.layer(wall, PVW, picture, cell)
    report.layer(wall, PVW, (FROM_INPUT, (9, 0)), (2880, 1440, 1920, 1080), zoom=(50000, 100000, 25000, 0), selected=1,
                 border=border(4, 24, (255, 200, 0)),
                 mask={"enable": 1, "left": 16, "right": 16, "top": 0, "bottom": 0})
    report.layer(wall, PVW, (FROM_INPUT, (2, 2)), (320, 1520, 2160, 420), cutFill=BOUND, opacity=90)
    report.layer(wall, PVW, (FROM_INPUT, (3, 2)), (320, 1520, 2160, 420), kind=CUT, cutFill=BOUND)
    for scene in (PGM, PVW):
        report.layer(wall, scene, (FROM_LOGO, 0), (width - 120, 40, 64, 64), kind=LOGO)
    pairs = ((banner, 2, 1, (7, 0), (8, 3)), (tower, 1, 2, (10, 0), (6, 1)), (desk, 2, 1, (8, 0), (8, 1)))
    for scene in (PGM, PVW):
        report.layer(stage, scene, (FROM_INPUT, (1, 0)))
        for cell, picture in zip(tiles(canvas, 3, 1, gap=90), inputs((5, 0), (5, 1), (11, 0))):
            report.layer(stage, scene, picture, cell, opacity=80)
        for cell, picture in zip(tiles((0, 0, 3840, 2160), 2, 2), inputs((4, 0), (4, 1), (7, 2), (7, 3))):
            report.layer(side, scene, picture, cell)
        for screen, columns, rows, *pair in pairs:
            window = tuple(report.screens[screen]["mosaic"]["window"].values())
            for cell, picture in zip(tiles(window, columns, rows), inputs(*pair)):
                report.layer(screen, scene, picture, cell)
        report.layer(lobby, scene, (FROM_INPUT, (11, 2)))
        report.layer(record, scene, (FROM_INPUT, (3, 1)), kind=AUX)
    report.layer(side, PVW, (FROM_INPUT, (11, 3)), (1280, 720, 1280, 720), cutFill=BOUND)
    report.layer(side, PVW, (FROM_INPUT, (3, 2)), (1280, 720, 1280, 720), kind=CUT, cutFill=BOUND)
    report.layer(front, PGM, (FROM_PGM, desk[1]), kind=AUX)
    report.layer(stream, PGM, (FROM_INPUT, (3, 2)), kind=AUX)
    pictures = [(FROM_PGM, wall[1]), (FROM_PVW, wall[1]), (FROM_PGM, stage[1])]
    pictures += inputs((2, 0), (4, 0), (6, 0), (9, 2), (10, 1), (11, 0))
    for cell, picture in zip(tiles((0, 0, 1920, 1080), 3, 3), pictures):
        report.layer(monitor, PGM, picture, cell, kind=MVR, border=border(0, 2, (48, 107, 178)))

    report.backup(((0, 0), (0, 1)), ((4, 0), (4, 1)), ((6, 0), (6, 1)))
    report.preset(1, [wall])
    report.preset(2, [stage, side, banner], scene=PGM)
    cut = side + (4, CUT, PVW)
    report.user_key(1, side + (4, REGULAR, PVW), cut).user_key(2, wall + (8, REGULAR, PVW), cut)
    report.keypad([wall, side], pvw=1, pgm=2, keys=8)
    report.write("alder-max")


def larch():
    report = Report(29958, "Rehearsal", "192.168.0.9", 0x01020000, 0x000C05)
    # The card in the multiviewer's slot is an output card still.
    report.card(0, 30529).card(1, 30530, g0=(UHD, 0)).card(2, 30529).card(3, 30528)
    report.card(4, 30464).card(5, 30465, idle=(0,)).card(6, 30474).card(7, 30469, g0=(UHD, 0))
    wall = report.screen("Screen 1", [(0, port) for port in range(4)], columns=2, splice=4, selected=1)
    stage = report.screen("Screen 2", [(1, 0)], columns=1, splice=4)
    for scene in (PGM, PVW):
        for cell, picture in zip(tiles((0, 0, 3840, 2160), 2, 2), inputs((4, 0), (4, 2), (5, 0), (6, 0))):
            report.layer(wall, scene, picture, cell)
        report.layer(stage, scene, (FROM_INPUT, (7, 0)))
    report.layer(wall, PVW, (FROM_INPUT, (5, 0)), (1280, 720, 1280, 720), cutFill=BOUND)
    report.layer(wall, PVW, (FROM_INPUT, (5, 2)), (1280, 720, 1280, 720), kind=CUT, cutFill=BOUND)
    # The ports beside those on the wall stand by.
    report.backup(((4, 0), (4, 1)), ((4, 2), (4, 3)), ((5, 0), (5, 1)))
    report.preset(1, [wall, stage])
    cut = wall + (4, CUT, PVW)
    for identity in (1, 2, 3):
        report.user_key(identity, wall + (identity, REGULAR, PVW), cut)
    report.keypad([wall], pvw=1, pgm=1, keys=4)
    report.write("larch", sparsely=True)


def hazel():
    # Of the studios' group, but under the control of another station.
    report = Report(29960, "Control Room", "192.168.0.101", 0x02010000, 0x000D02, master=201)
    report.card(0, 30464).card(1, 30465).card(2, 30466).card(3, 30469, g0=(UHD, 0)).card(8, 30529).card(9, 30529)
    report.card(14, 30535, mvr=True).card(15, 30528, mvr=True)
    report.detail["groupInfos"] = [{"groupName": "Studios", "groupId": "1"}]
    report.detail["genlock"] = {"type": 2, "interfaceId": packed(2, 3)}
    wall = report.screen("Programme", [(8, port) for port in range(4)], columns=2, selected=1)
    desk = report.screen("Desk", [(9, 0), (9, 1)], columns=2)
    host = report.screen("AuxScreen 1", [(14, 1)], columns=1, kind=AUX_SCREEN)
    director = report.screen("MVR 1", [(14, 0)], columns=1, kind=MVR_SCREEN)
    engineer = report.screen("MVR 2", [(15, 0)], columns=1, kind=MVR_SCREEN)
    for scene in (PGM, PVW):
        for cell, picture in zip(tiles((0, 0, 3840, 2160), 2, 2), inputs((3, 0), (0, 0), (0, 1), (1, 0))):
            report.layer(wall, scene, picture, cell)
        report.layer(desk, scene, (FROM_INPUT, (2, 0)))
    report.layer(host, PGM, (FROM_PGM, 0), kind=AUX)
    # On the default grid of 6 by 6: both scenes over 3 by 3 cells each, three inputs over 2 by 2 each, and four in a
    # cell each; two cells stay free.
    cells = tiles((0, 0, 1920, 1080), 6, 6)
    label = {"index": 0, "enable": 1, "color": {"foregroundColor": rgb(178, 178, 178, opacity=100),
                                                "backgroundColor": rgb(0, 0, 0, opacity=100)}}
    pictures = [((FROM_PVW, 0), (0, 0, 960, 540)), ((FROM_PGM, 0), (960, 0, 960, 540))]
    pictures += zip(inputs((3, 0), (0, 0), (0, 1)), tiles((0, 540, 1920, 360), 3, 1))
    pictures += zip(inputs((1, 0), (1, 1), (2, 0), (2, 1)), cells[30:])
    for picture, cell in pictures:
        report.layer(director, PGM, picture, cell, kind=MVR, border=border(0, 2, (48, 107, 178)), UMD=[label])
    report.layer(engineer, PGM, (FROM_PGM, desk[1]), (0, 0, 1920, 540), kind=MVR, border=border(0, 2, (192, 36, 37)))
    report.backup(((0, 0), (0, 2)), ((1, 0), (1, 2)))
    report.write("hazel", sparsely=True)


if __name__ == "__main__":
    birch_mini()
    alder()
    alder_max()
    larch()
    hazel()
