#include "DwgSample.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "DwgFileWriter.h"

namespace {

// What a handle is to its holder.
enum Reference : unsigned { itself = 0, softOwned = 2, hardOwned = 3, softPointer = 4, hardPointer = 5 };

enum Type : unsigned {
    attrib = 2,
    attdef = 3,
    block = 4,
    endblk = 5,
    seqend = 6,
    insert = 7,
    point = 27,
    dictionary = 42,
    blockControl = 48,
    blockHeader = 49,
    layerControl = 50,
    layer = 51,
    styleControl = 52,
    style = 53,
    ltypeControl = 56,
    ltype = 57,
    viewControl = 60,
    ucsControl = 62,
    vportControl = 64,
    appidControl = 66,
    appid = 67,
    dimstyleControl = 68,
    vpEntityControl = 70,
    xrecord = 79
};

enum Handle : unsigned {
    hNone = 0,
    hBlocks,
    hLayers,
    hStyles,
    hLtypes,
    hViews,
    hUcss,
    hVports,
    hAppids,
    hDimstyles,
    hVpEntities,
    hRoot,
    hGroups,
    hMlineStyles,
    hLayerZero,
    hLayerBati,
    hStandard,
    hAcad,
    hSurvey,
    hByBlock,
    hByLayer,
    hContinuous,
    hDotted,
    hModelSpace,
    hPaperSpace,
    hBorne,
    hLeve,
    hDonnees,
    hFiche,
    // A block's entities stand between its BLOCK and its ENDBLK, one handle after the other.
    hModelBlock,
    hPoint,
    hInsert,
    hAttrib,
    hSeqend,
    hModelEnd,
    hPaperBlock,
    hPaperEnd,
    hBorneBlock,
    hAttdef,
    hBorneEnd,
    hNext
};

class Sample {
public:
    std::string write();

private:
    struct Parts {
        DwgBits extended;
        DwgBits data;
        DwgBits handles;
    };

    void addObject(unsigned type, unsigned handle, unsigned owner, const Parts& parts, unsigned extension = hNone);
    void addEntity(unsigned type, unsigned handle, unsigned owner, unsigned onLayer, const Parts& parts,
                   unsigned extension = hNone);
    void addControl(unsigned type, unsigned handle, std::initializer_list<unsigned> entries,
                    std::initializer_list<unsigned> apart = {});
    void addDictionary(unsigned handle, unsigned owner, const std::map<std::string, unsigned>& entries);
    void addBlock(unsigned handle, const std::string& name, unsigned begin, unsigned first, unsigned last, unsigned end,
                  bool hasAttributes);
    void addTables();
    void addLinetype(unsigned handle, std::string_view name, std::string_view description,
                     const std::vector<double>& dashes);
    void addBlocks();
    void addEntities();
    void addXrecords();

    DwgFileWriter m_file;
};

/// Name and flags that start the record of every symbol table.
DwgBits tableRecord(std::string_view name)
{
    DwgBits bits;
    bits.TV(name);
    bits.B(true); // referred to by the drawing
    bits.BS(0);   // external reference: index, dependence
    bits.B(false);
    return bits;
}

void Sample::addObject(unsigned type, unsigned handle, unsigned owner, const Parts& parts, unsigned extension)
{
    DwgBits common;
    common.BL(0); // reactors
    DwgBits handles;
    handles.H(softPointer, owner);
    handles.H(hardOwned, extension);
    handles.append(parts.handles);
    m_file.add({type, handle, parts.extended, common, parts.data, handles});
}

void Sample::addEntity(unsigned type, unsigned handle, unsigned owner, unsigned onLayer, const Parts& parts,
                       unsigned extension)
{
    const unsigned space = owner == hModelSpace ? 2 : owner == hPaperSpace ? 1 : 0;
    DwgBits common;
    common.B(false);  // no preview
    common.BB(space); // 0: the owner is among the handles
    common.BL(0);     // reactors
    common.B(true);   // its neighbours have the handles before and after its own
    common.BS(256);   // colour by layer
    common.BD(1.0);   // linetype scale
    common.BB(0);     // linetype and plot style by layer
    common.BB(0);
    common.BS(0);  // visible
    common.RC(29); // lineweight by layer

    DwgBits handles;
    if (space == 0)
        handles.H(softPointer, owner);
    handles.H(hardOwned, extension);
    handles.H(hardPointer, onLayer);
    handles.append(parts.handles);
    m_file.add({type, handle, parts.extended, common, parts.data, handles});
}

void Sample::addControl(unsigned type, unsigned handle, std::initializer_list<unsigned> entries,
                        std::initializer_list<unsigned> apart)
{
    Parts parts;
    parts.data.BL(static_cast<std::uint32_t>(entries.size()));
    if (type == dimstyleControl)
        parts.data.RC(0);
    for (const unsigned entry : entries)
        parts.handles.H(softOwned, entry);
    for (const unsigned entry : apart)
        parts.handles.H(hardOwned, entry);
    addObject(type, handle, hNone, parts);
}

void Sample::addDictionary(unsigned handle, unsigned owner, const std::map<std::string, unsigned>& entries)
{
    Parts parts;
    parts.data.BL(static_cast<std::uint32_t>(entries.size()));
    parts.data.BS(1); // of two of one name, the first is kept
    parts.data.RC(1); // owns its entries
    for (const auto& [name, entry] : entries) {
        parts.data.TV(name);
        parts.handles.H(hardOwned, entry);
    }
    addObject(dictionary, handle, owner, parts);
}

void Sample::addTables()
{
    addControl(blockControl, hBlocks, {hBorne}, {hModelSpace, hPaperSpace});
    addControl(layerControl, hLayers, {hLayerZero, hLayerBati});
    addControl(styleControl, hStyles, {hStandard});
    addControl(ltypeControl, hLtypes, {hContinuous, hDotted}, {hByLayer, hByBlock});
    addControl(viewControl, hViews, {});
    addControl(ucsControl, hUcss, {});
    addControl(vportControl, hVports, {});
    addControl(appidControl, hAppids, {hAcad, hSurvey});
    addControl(dimstyleControl, hDimstyles, {});
    addControl(vpEntityControl, hVpEntities, {});

    for (const auto& [handle, name, state] :
         {std::tuple{hLayerZero, "0", 0U}, std::tuple{hLayerBati, "B\xE2ti", 2U | 8U}}) { // off and locked
        Parts parts;
        parts.data = tableRecord(name);
        parts.data.BS(31 << 5 | 16 | state); // default lineweight, plotted
        parts.data.BS(7);
        parts.handles.H(hardPointer, hNone); // external reference
        parts.handles.H(hardPointer, hNone); // plot style
        parts.handles.H(hardPointer, hContinuous);
        addObject(layer, handle, hLayers, parts);
    }
    Parts standard;
    standard.data = tableRecord("Standard");
    standard.data.B(false); // not vertical, no shape file
    standard.data.B(false);
    standard.data.BD(0.0);
    standard.data.BD(1.0);
    standard.data.BD(0.0);
    standard.data.RC(0);
    standard.data.BD(2.5);
    standard.data.TV("txt");
    standard.data.TV("");
    standard.handles.H(hardPointer, hNone);
    addObject(style, hStandard, hStyles, standard);
    for (const auto& [handle, name] : {std::pair{hAcad, "ACAD"}, std::pair{hSurvey, "SURVEY"}}) {
        Parts parts;
        parts.data = tableRecord(name);
        parts.data.RC(0);
        parts.handles.H(hardPointer, hNone);
        addObject(appid, handle, hAppids, parts);
    }
    addLinetype(hByBlock, "ByBlock", "", {});
    addLinetype(hByLayer, "ByLayer", "", {});
    addLinetype(hContinuous, "Continuous", "", {});
    addLinetype(hDotted, "Pointill\xE9", "_ . _ .", {12.5, -6, 0.5, -6});
}

void Sample::addLinetype(unsigned handle, std::string_view name, std::string_view description,
                         const std::vector<double>& dashes)
{
    Parts parts;
    parts.data = tableRecord(name);
    parts.data.TV(description);
    double length = 0.0;
    for (const double dash : dashes)
        length += std::abs(dash);
    parts.data.BD(length);
    parts.data.RC('A');
    parts.data.RC(static_cast<unsigned>(dashes.size()));
    for (const double dash : dashes) {
        parts.data.BD(dash);
        parts.data.BS(0); // no shape: number, offset, scale, rotation, flags
        parts.data.RD(0.0);
        parts.data.RD(0.0);
        parts.data.BD(1.0);
        parts.data.BD(0.0);
        parts.data.BS(0);
    }
    parts.data.bytes(std::string(256, '\0')); // texts within dashes
    parts.handles.H(hardPointer, hNone);
    for (std::size_t i = 0; i < dashes.size(); ++i)
        parts.handles.H(hardPointer, hNone); // their text styles
    addObject(ltype, handle, hLtypes, parts);
}

void Sample::addBlock(unsigned handle, const std::string& name, unsigned begin, unsigned first, unsigned last,
                      unsigned end, bool hasAttributes)
{
    Parts header;
    header.data = tableRecord(name);
    header.data.B(false); // not anonymous
    header.data.B(hasAttributes);
    header.data.B(false); // no external reference, no overlay
    header.data.B(false);
    header.data.B(true); // loaded
    header.data.BD3(0, 0, 0);
    header.data.TV("");
    header.data.RC(0); // no inserts listed
    header.data.TV("");
    header.data.BL(0); // no preview
    header.handles.H(hardPointer, hNone);
    header.handles.H(hardOwned, begin);
    header.handles.H(softPointer, first);
    header.handles.H(softPointer, last);
    header.handles.H(hardOwned, end);
    header.handles.H(hardPointer, hNone); // layout
    addObject(blockHeader, handle, hBlocks, header);
}

/// The fields that a text shares with attributes, at their full length; upright, left-aligned.
DwgBits textFields(double x, double y, double height, std::string_view text)
{
    DwgBits bits;
    bits.RC(1 | 2 | 4 | 8 | 16 | 32 | 64 | 128); // all that may be left out is left out
    bits.RD(x);
    bits.RD(y);
    bits.B(true); // extrusion along Z, no thickness
    bits.B(true);
    bits.RD(height);
    bits.TV(text);
    return bits;
}

void Sample::addBlocks()
{
    addBlock(hModelSpace, "*Model_Space", hModelBlock, hPoint, hInsert, hModelEnd, false);
    addBlock(hPaperSpace, "*Paper_Space", hPaperBlock, hNone, hNone, hPaperEnd, false);
    addBlock(hBorne, "BORNE", hBorneBlock, hAttdef, hAttdef, hBorneEnd, true);
    const auto bound = [this](Type type, unsigned handle, unsigned owner, std::string_view name) {
        Parts parts;
        if (type == block)
            parts.data.TV(name);
        addEntity(type, handle, owner, hLayerZero, parts);
    };
    bound(block, hModelBlock, hModelSpace, "*Model_Space");
    addEntities();
    bound(endblk, hModelEnd, hModelSpace, "");
    bound(block, hPaperBlock, hPaperSpace, "*Paper_Space");
    bound(endblk, hPaperEnd, hPaperSpace, "");
    bound(block, hBorneBlock, hBorne, "BORNE");
    Parts definition;
    definition.data = textFields(0, 1, 2.5, "?");
    definition.data.TV("NOM");
    definition.data.BS(0);
    definition.data.RC(0);
    definition.data.TV("Nom ?");
    definition.handles.H(hardPointer, hStandard);
    addEntity(attdef, hAttdef, hBorne, hLayerZero, definition);
    bound(endblk, hBorneEnd, hBorne, "");
}

void Sample::addEntities()
{
    DwgBits items; // of the extended data: group code less 1000, value
    items.RC(0);
    items.RC(5); // length, then code page 1252's number, high byte first
    items.RC(0);
    items.RC(30);
    items.bytes("Lev\xE9s");
    items.RC(40);
    items.RD(-0.0625);
    items.RC(71);
    items.RL(70000);
    Parts spot;
    spot.extended.BS(static_cast<unsigned>(items.bytes().size()));
    spot.extended.H(hardPointer, hSurvey);
    spot.extended.append(items);
    spot.data.BD3(1.5, -2.25, 101.125);
    spot.data.B(true);
    spot.data.B(true);
    spot.data.BD(0.0);
    addEntity(point, hPoint, hModelSpace, hLayerBati, spot);

    Parts borne;
    borne.data.BD3(10, 20, 0);
    borne.data.BB(3); // scale 1
    borne.data.BD(0.0);
    borne.data.BD3(0, 0, 1);
    borne.data.B(true); // attributes
    borne.handles.H(hardPointer, hBorne);
    borne.handles.H(softPointer, hAttrib);
    borne.handles.H(softPointer, hAttrib);
    borne.handles.H(hardOwned, hSeqend);
    addEntity(insert, hInsert, hModelSpace, hLayerZero, borne, hDonnees);

    Parts name;
    name.data = textFields(10, 21, 2.5, "B.12");
    name.data.TV("NOM");
    name.data.BS(0);
    name.data.RC(0);
    name.handles.H(hardPointer, hStandard);
    addEntity(attrib, hAttrib, hInsert, hLayerZero, name);
    addEntity(seqend, hSeqend, hInsert, hLayerZero, {});
}

void Sample::addXrecords()
{
    const auto addXrecord = [this](unsigned handle, unsigned owner, const DwgBits& items) {
        Parts parts;
        parts.data.BL(static_cast<std::uint32_t>(items.bytes().size()));
        parts.data.append(items);
        parts.data.BS(1);
        addObject(xrecord, handle, owner, parts);
    };
    const auto text = [](DwgBits& items, unsigned code, std::string_view value) {
        items.RS(code);
        items.RS(static_cast<unsigned>(value.size()));
        items.RC(30);
        items.bytes(value);
    };
    DwgBits leve;
    text(leve, 1, "\xC9t\xE9 2015");
    leve.RS(40);
    leve.RD(1e38);
    leve.RS(10);
    leve.RD(4512.5);
    leve.RD(-7.25);
    leve.RD(0.125);
    leve.RS(70);
    leve.RS(12);
    leve.RS(90);
    leve.RL(123456);
    addXrecord(hLeve, hRoot, leve);
    DwgBits fiche;
    text(fiche, 300, "borne");
    addXrecord(hFiche, hDonnees, fiche);

    addDictionary(hRoot, hNone, {{"ACAD_GROUP", hGroups}, {"ACAD_MLINESTYLE", hMlineStyles}, {"LEVE", hLeve}});
    addDictionary(hGroups, hRoot, {});
    addDictionary(hMlineStyles, hRoot, {});
    addDictionary(hDonnees, hInsert, {{"FICHE", hFiche}});
}

/// Variables of the drawing's header, in words: kind, "=value" where it is not zero, "*count" of the same.
void variables(DwgBits& bits, std::string_view words)
{
    std::istringstream stream{std::string(words)};
    for (std::string word; stream >> word;) {
        const auto equals = word.find('=');
        const auto times = word.find('*');
        const std::string kind = word.substr(0, std::min(equals, times));
        const double value = equals == word.npos ? 0.0 : std::stod(word.substr(equals + 1));
        for (int count = times == word.npos ? 1 : std::stoi(word.substr(times + 1)); count > 0; --count)
            if (kind == "B")
                bits.B(value != 0.0);
            else if (kind == "BS")
                bits.BS(static_cast<unsigned>(value));
            else if (kind == "BL")
                bits.BL(static_cast<std::uint32_t>(value));
            else if (kind == "BD")
                bits.BD(value);
            else if (kind == "RD")
                bits.RD(value);
            else if (kind == "TV")
                bits.TV("");
            else if (kind == "H")
                bits.H(hardPointer, hNone);
    }
}

/// All those of the version, in the order of the format.
DwgBits headerVariables()
{
    DwgBits bits;
    variables(bits, "BD=412148564080 BD=1*3 TV*4 BL=24 BL H");
    variables(bits, "B*9");                                     // DIMASO to LIMCHECK
    variables(bits, "B*6 B=1 B*4");                             // USRTIMER to PELLIPSE, with TILEMODE
    variables(bits, "BS BS=3020 BS=2 BS=3 BS*4 BS*5 BS*14");    // PROXYGRAPHICS to TEXTQLTY
    variables(bits, "BD=1 BD=2.5 BD*7 BD*5 BD*4 BD BD=1*2 TV"); // LTSCALE to CELTSCALE, MENUNAME
    variables(bits, "BL=2457000 BL BL=2457000 BL BL*4 BS=256"); // times, CECOLOR
    bits.H(itself, hNext);                                      // HANDSEED
    bits.H(hardPointer, hLayerZero);                            // CLAYER
    bits.H(hardPointer, hStandard);                             // TEXTSTYLE
    bits.H(hardPointer, hByLayer);                              // CELTYPE
    variables(bits, "H*2");                                     // DIMSTYLE, CMLSTYLE
    for (const char* space : {"BD BD*9 RD*4 BD BD*3 BD=1 BD*3 BD=1 BD H*2 BS H BD*18",
                              "BD*9 RD*4 BD BD*3 BD=1 BD*3 BD=1 BD H*2 BS H BD*18"})
        variables(bits, space); // of paper space from PSVPSCALE on, of model space from INSBASE on
    variables(bits, "TV*2 BD=1 BD*8 B*6 BS*3 BD*8 BD B BS B*4 BS*3"); // DIMPOST to DIMCLRT
    variables(bits, "BS*11 B*2 BS*4 B BS H*5 BS*2");                  // DIMADEC to DIMLWE
    for (const unsigned table :
         {hBlocks, hLayers, hStyles, hLtypes, hViews, hUcss, hVports, hAppids, hDimstyles, hVpEntities})
        bits.H(hardOwned, table);
    for (const unsigned entry : {hGroups, hMlineStyles, hRoot})
        bits.H(hardPointer, entry);
    variables(bits, "BS*2 TV*2 H*3 BL BS BS TV*2"); // TSTACKALIGN to VERSIONGUID
    for (const unsigned record : {hPaperSpace, hModelSpace, hByLayer, hByBlock, hContinuous})
        bits.H(hardPointer, record);
    variables(bits, "BS*4");
    return bits;
}

std::string Sample::write()
{
    addTables();
    addBlocks();
    addXrecords();
    return m_file.bytes(headerVariables());
}

} // namespace

std::string dwgSample()
{
    return Sample().write();
}
