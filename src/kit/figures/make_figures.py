#!/usr/bin/python3
"""Cuts the tabular figures 0 to 9 out of Inter into the three small faces beside this file.

Needs python3-fonttools and the fonts of Debian's fonts-inter. Run again only when Inter changes.
"""
import pathlib

from fontTools import subset
from fontTools.ttLib import TTFont

INTER = pathlib.Path("/usr/share/fonts/opentype/inter")
FIGURES = "0123456789"


def tabular_glyphs(font):
    """Glyph name to the name of its tabular form."""
    table = font["GSUB"].table
    forms = {}
    for record in table.FeatureList.FeatureRecord:
        if record.FeatureTag == "tnum":
            for index in record.Feature.LookupListIndex:
                for part in table.LookupList.Lookup[index].SubTable:
                    forms.update(getattr(part, "ExtSubTable", part).mapping)
    return forms


for face, label in (("Regular", "Regular"), ("Medium", "Medium"), ("SemiBold", "Semi Bold")):
    font = TTFont(INTER / f"Inter-{face}.otf")
    forms = tabular_glyphs(font)
    names = font.getBestCmap()
    figures = {ord(c): forms[names[ord(c)]] for c in FIGURES}
    for table in font["cmap"].tables:
        table.cmap.update({code: glyph for code, glyph in figures.items() if code in table.cmap})

    options = subset.Options()
    options.layout_features = []
    options.hinting = False
    options.desubroutinize = True
    options.name_IDs = ["*"]
    cut = subset.Subsetter(options)
    cut.populate(text=FIGURES)
    cut.subset(font)
    for tag in ("GSUB", "GPOS", "GDEF", "STAT", "meta"):
        if tag in font:
            del font[tag]

    widest = max(font["hmtx"][glyph][0] for glyph in figures.values())
    for glyph, (_, bearing) in list(font["hmtx"].metrics.items()):
        font["hmtx"][glyph] = (widest, bearing)

    naming = font["name"]
    licence = [(record.nameID, str(record)) for record in naming.names if record.nameID in (0, 13, 14)]
    naming.names = []
    family = "Vellora Figures" if face == "Regular" else f"Vellora Figures {label}"
    plain = f"VelloraFigures-{face}"
    entries = licence + [(1, family), (2, "Regular"), (3, plain), (4, f"Vellora Figures {label}"),
                         (5, "Version 1.0"), (6, plain), (16, "Vellora Figures"), (17, label)]
    for number, text in entries:
        naming.setName(text, number, 3, 1, 0x409)
    outlines = font["CFF "].cff
    outlines.fontNames = [plain]
    outlines.topDictIndex[0].FullName = f"Vellora Figures {label}"
    outlines.topDictIndex[0].FamilyName = "Vellora Figures"
    font.save(pathlib.Path(__file__).with_name(f"{plain}.otf"))
