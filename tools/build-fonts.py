#!/usr/bin/python3
"""Builds the fonts that Veritrace bundles in its resources, from the DejaVu fonts of Debian.

    /usr/bin/python3 tools/build-fonts.py        (needs python3-fonttools and fonts-dejavu-core)

Writes into assets/fonts/:
  OrlentisFont.ttf          the equation font: DejaVu Serif with the four equation glyphs
                            ("~" root sign, "&" upper piece of the tall root sign, "_" a rule that
                            joins up when repeated, "`" pi) and a space sized for fraction padding
  VeritraceSans.ttf         stand-in for "MS Sans Serif" (the graph's numbers)
  VeritraceMono.ttf,
  VeritraceMono-Bold.ttf    stand-ins for "Courier" (the quadrant numerals are bold)
  VeritraceSerif.ttf        stand-in for "Book Antiqua" (the regression equation window)
  LICENSE-DejaVu.txt        the licence of the fonts these derive from

Every font is cut down to the characters the program can show (Latin-1, Greek, a few symbols),
has its hinting removed (Veritrace draws without hinting, so that every machine makes the same
pixels) and carries a new family name, as the licence of the base fonts asks of modified copies.
The output is reproducible: running the script twice gives identical files. The generated files
are committed; the build does not run this script.
"""

import io
import math
import os
import sys

from fontTools import subset
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTFont
from fontTools.ttLib.tables._g_l_y_f import Glyph, GlyphComponent

SOURCE_DIR = "/usr/share/fonts/truetype/dejavu"
OUT_DIR = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "assets", "fonts")
VERSION = "Version 1.0; derived from DejaVu 2.37"
# A fixed date keeps the output byte for byte the same from run to run (2024-01-01, in seconds
# since 1904-01-01 as the head table counts).
FIXED_TIMESTAMP = 3786825600

# What the program can show: printable ASCII, Latin-1, Greek, and the symbols a mathematics
# program may print (dashes, quotes, ellipsis, minus, root, infinity, comparisons).
UNICODES = (
    list(range(0x20, 0x7F))
    + list(range(0xA0, 0x100))
    + list(range(0x370, 0x400))
    + [0x2013, 0x2014, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2026,
       0x2212, 0x221A, 0x221E, 0x2248, 0x2260, 0x2264, 0x2265]
)

FONTS = [
    # (source file, family, style, PostScript name, output file)
    ("DejaVuSerif.ttf", "OrlentisFont", "Regular", "OrlentisFont", "OrlentisFont.ttf"),
    ("DejaVuSansCondensed.ttf", "Veritrace Sans", "Regular", "VeritraceSans",
     "VeritraceSans.ttf"),
    ("DejaVuSansMono.ttf", "Veritrace Mono", "Regular", "VeritraceMono", "VeritraceMono.ttf"),
    ("DejaVuSansMono-Bold.ttf", "Veritrace Mono", "Bold", "VeritraceMono-Bold",
     "VeritraceMono-Bold.ttf"),
    ("DejaVuSerif.ttf", "Veritrace Serif", "Regular", "VeritraceSerif", "VeritraceSerif.ttf"),
]


# ---------------------------------------------------------------------------------------------
# The equation glyphs of OrlentisFont.
#
# The typesetter prints an equation one character at a time, moving the pen by the measured
# width of each character, and builds roots and fraction bars out of separate prints. These
# glyphs are shaped for the offsets it uses on an entry row (font size 12 pt = 16 px, 1 em):
#
#  * "_" is printed over and over from the start of a bar to its end, its cell top 0.6 F above
#    the text line for a fraction bar and 1.5 F above it for a root's overbar. The glyph is a bar
#    across its whole advance (0.5 em, with a little overlap so that fractional advances on a
#    printer leave no gap), 0.25..0.31 em below the baseline: one pixel row on a row, halfway
#    between numerator and denominator, and two pixel rows above the text under a root.
#  * "~" is printed 2 px left of and 2 px above the root's start, with the overbar starting
#    0.5 F (8 px = 0.5 em from the sign's origin) to the right of the root's start. Its long
#    stroke therefore ends at x = 0.5 em, level with the overbar: 0.6875..0.75 em above the
#    sign's baseline. Its foot reaches the baseline of the text under the root (-0.125 em).
#  * "&" is the upper piece of the tall root sign around a fraction: printed 9 px higher and
#    2 px right of the root's start, followed by "~" 16 px (1 em) lower at (pen - 14). With
#    the advance of "&" at 0.625 em (10 px) that "~" stands at the plain sign's place, 0.25 em
#    left of "&", so its long stroke ends under x = 0.25 em of "&". "&" is a vertical stem
#    there, from just below the top of that "~" (-0.25 em) up to the overbar (0.75 em).
#  * "`" is the font's pi with 0.05 em more room on either side.
#  * The space is 0.3125 em (5 px on a row): the typesetter pads the narrower side of a fraction
#    with one space for every 10 px of difference, so half of that per space centres it.
# ---------------------------------------------------------------------------------------------

EM = 2048


def Units(value):
    return int(round(value * EM))


def Polygon(pen, points):
    """One closed contour, turned clockwise as TrueType expects of an outer contour."""
    area = 0.0
    for (x1, y1), (x2, y2) in zip(points, points[1:] + points[:1]):
        area += x1 * y2 - x2 * y1
    if area > 0:
        points = list(reversed(points))
    pen.moveTo((Units(points[0][0]), Units(points[0][1])))
    for x, y in points[1:]:
        pen.lineTo((Units(x), Units(y)))
    pen.closePath()


def Stroke(pen, x1, y1, x2, y2, width):
    """A straight stroke of a given width with square ends, in em."""
    length = math.hypot(x2 - x1, y2 - y1)
    nx, ny = -(y2 - y1) / length * width / 2, (x2 - x1) / length * width / 2
    Polygon(pen, [(x1 + nx, y1 + ny), (x2 + nx, y2 + ny), (x2 - nx, y2 - ny), (x1 - nx, y1 - ny)])


def Box(pen, x1, y1, x2, y2):
    Polygon(pen, [(x1, y1), (x1, y2), (x2, y2), (x2, y1)])


BAR_BOTTOM, BAR_TOP = -0.31, -0.25  # the rule, below the baseline
JOIN_BOTTOM, JOIN_TOP = 0.6875, 0.75  # where a root's overbar lies, seen from the sign


def RootSign(pen):
    Stroke(pen, 0.03, 0.30, 0.12, 0.37, 0.055)  # the small tick at the left
    Stroke(pen, 0.11, 0.375, 0.255, -0.125, 0.10)  # the heavy down stroke to the foot
    Stroke(pen, 0.235, -0.11, 0.50, JOIN_TOP - 0.02, 0.06)  # the long thin up stroke
    Box(pen, 0.465, JOIN_BOTTOM, 0.57, JOIN_TOP)  # meets the overbar


def RootUpperPiece(pen):
    Box(pen, 0.235, -0.33, 0.305, JOIN_TOP)  # the stem, down into the top of the "~" below
    Box(pen, 0.235, JOIN_BOTTOM, 0.36, JOIN_TOP)  # meets the overbar


def Rule(pen):
    Box(pen, -0.03, BAR_BOTTOM, 0.53, BAR_TOP)


EQUATION_GLYPHS = [
    # (character, glyph name, advance in em, drawing)
    ("~", "orlentis.root", 0.5625, RootSign),
    ("&", "orlentis.rootupper", 0.625, RootUpperPiece),
    ("_", "orlentis.rule", 0.5, Rule),
]
SPACE_ADVANCE = 0.3125
PI_SIDE_ROOM = 0.05


def AddEquationPi(font):
    """The font's pi with more room at its sides, so that its feet keep clear of an "x" or a
    digit printed next to it on a row. A composite of the pi glyph, moved right."""
    glyf = font["glyf"]
    hmtx = font["hmtx"]
    base = font.getBestCmap()[0x3C0]
    pad = Units(PI_SIDE_ROOM)
    glyph = Glyph()
    glyph.numberOfContours = -1
    component = GlyphComponent()
    component.glyphName = base
    component.x, component.y = pad, 0
    component.flags = 0x0004  # ROUND_XY_TO_GRID, as compilers set it
    glyph.components = [component]
    glyf["orlentis.pi"] = glyph
    glyph.recalcBounds(glyf)
    hmtx["orlentis.pi"] = (hmtx[base][0] + 2 * pad, glyph.xMin)
    return "orlentis.pi"


def AddEquationGlyphs(font):
    glyf = font["glyf"]
    hmtx = font["hmtx"]
    mapping = {}
    for char, name, advance, draw in EQUATION_GLYPHS:
        pen = TTGlyphPen(None)
        draw(pen)
        glyph = pen.glyph()
        glyph.recalcBounds(glyf)
        glyf[name] = glyph  # also appends the name to the font's glyph order
        hmtx[name] = (Units(advance), glyph.xMin)
        mapping[ord(char)] = name
    font.setGlyphOrder(glyf.glyphOrder)
    mapping[ord("`")] = AddEquationPi(font)
    for table in font["cmap"].tables:
        if table.isUnicode():
            for code, name in mapping.items():
                if code in table.cmap:
                    table.cmap[code] = name
    hmtx["space"] = (Units(SPACE_ADVANCE), hmtx["space"][1])


# ---------------------------------------------------------------------------------------------


def Subset(font):
    options = subset.Options()
    options.hinting = False
    options.name_IDs = ["*"]
    options.name_languages = ["*"]
    options.name_legacy = True
    options.notdef_outline = True
    options.glyph_names = False
    options.layout_features = ["kern", "liga"]
    options.drop_tables += ["FFTM", "MATH", "gasp"]
    subsetter = subset.Subsetter(options)
    subsetter.populate(unicodes=UNICODES)
    subsetter.subset(font)


def Rename(font, family, style, postscript):
    full = family if style == "Regular" else f"{family} {style}"
    names = {
        1: family,
        2: style,
        3: f"{full}: Veritrace",
        4: full,
        5: VERSION,
        6: postscript,
        16: family,
        17: style,
    }
    table = font["name"]
    copyright_text = table.getDebugName(0)
    table.names = [n for n in table.names if n.nameID not in names and n.nameID != 0]
    for name_id, text in names.items():
        table.setName(text, name_id, 3, 1, 0x409)
        table.setName(text, name_id, 1, 0, 0)
    notice = copyright_text.strip() + f"\n{family} is a modified copy made for Veritrace."
    table.setName(notice, 0, 3, 1, 0x409)
    table.setName(notice, 0, 1, 0, 0)
    table.names.sort(key=lambda n: (n.platformID, n.platEncID, n.langID, n.nameID))


def Build(source, family, style, postscript, out_name):
    font = TTFont(os.path.join(SOURCE_DIR, source), recalcTimestamp=False)
    if family == "OrlentisFont":
        AddEquationGlyphs(font)
    Subset(font)
    Rename(font, family, style, postscript)
    font["head"].created = FIXED_TIMESTAMP
    font["head"].modified = FIXED_TIMESTAMP
    buffer = io.BytesIO()
    font.save(buffer)
    with open(os.path.join(OUT_DIR, out_name), "wb") as out:
        out.write(buffer.getvalue())
    return len(buffer.getvalue())


def WriteLicence():
    font = TTFont(os.path.join(SOURCE_DIR, "DejaVuSerif.ttf"))
    licence = font["name"].getDebugName(13).replace("\r\n", "\n")
    header = (
        "The fonts in this folder are modified copies of the DejaVu fonts 2.37\n"
        "(https://dejavu-fonts.github.io/), renamed as the licence below requires:\n"
        "  OrlentisFont.ttf                               from DejaVu Serif, with new glyphs\n"
        "  VeritraceSans.ttf                              from DejaVu Sans Condensed\n"
        "  VeritraceMono.ttf, VeritraceMono-Bold.ttf      from DejaVu Sans Mono\n"
        "  VeritraceSerif.ttf                             from DejaVu Serif\n"
        "They are cut down to fewer characters and their hinting is removed; OrlentisFont's\n"
        'characters "~", "&", "_" and "`" and its space are redrawn for the equation display.\n'
        "tools/build-fonts.py makes them.\n\n"
    )
    with open(os.path.join(OUT_DIR, "LICENSE-DejaVu.txt"), "w", encoding="utf-8") as out:
        out.write(header + licence.strip() + "\n")


def Main():
    os.makedirs(OUT_DIR, exist_ok=True)
    for source, family, style, postscript, out_name in FONTS:
        size = Build(source, family, style, postscript, out_name)
        print(f"{out_name}: {size} bytes")
    WriteLicence()
    return 0


if __name__ == "__main__":
    sys.exit(Main())
