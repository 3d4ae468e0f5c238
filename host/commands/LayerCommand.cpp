#include <sstream>

#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/SymbolRecords.h"
#include "commands/Variables.h"
#include "db/Colors.h"
#include "platform/LetterCase.h"

#include "acutads.h"
#include "dbsymtb.h"

/// The layers of the drawing, by their names.

namespace {

using Layer = AcDbLayerTableRecord;
using LayerChange = std::function<Acad::ErrorStatus(Layer&)>;

std::wstring currentLayer()
{
    return variable<std::wstring>(L"CLAYER");
}

AcDbObjectId layerNamed(const std::wstring& name)
{
    return recordNamed(drawing().layerTableId(), name);
}

/// Makes a layer. @throws CommandFailed when its name will not do.
AcDbObjectId makeLayer(const std::wstring& name)
{
    const AcDbObjectPointer<AcDbLayerTable> layers(drawing().layerTableId(), AcDb::kForWrite);
    auto record = std::make_unique<Layer>();
    record->setLinetypeObjectId(drawing().continuousLinetype());
    AcDbObjectId id;
    if (!layers.object() || record->setName(name.c_str()) != Acad::eOk || layers->add(id, record.get()) != Acad::eOk)
        throw CommandFailed(command_texts::isNotAllowed(L"Le nom de calque ", name));
    record.release()->close();
    return id;
}

/// Names with commas between; what is left blank counts as the current layer where it is offered.
std::vector<std::wstring> askNames(const std::wstring& prompt, bool offerCurrent)
{
    const std::wstring otherwise = offerCurrent ? L" <" + currentLayer() + L">" : L"";
    std::wstring typed = Prompt(prompt + otherwise + L" : ").name();
    if (typed.empty() && offerCurrent)
        typed = currentLayer();
    std::vector<std::wstring> names;
    std::wistringstream list(typed);
    for (std::wstring name; std::getline(list, name, L',');)
        if (!name.empty())
            names.push_back(name);
    return names;
}

/// The layers that patterns name. @throws CommandFailed when one names none.
std::vector<AcDbObjectId> layersLike(const std::vector<std::wstring>& patterns)
{
    std::vector<AcDbObjectId> found;
    const auto all = recordsOf(drawing().layerTableId());
    for (const std::wstring& pattern : patterns) {
        bool any = false;
        const std::wstring folded = platform::lowerCase(pattern);
        for (const AcDbObjectId id : all) {
            const std::wstring name = platform::lowerCase(recordName(id));
            if (name != folded && acutWcMatch(name.c_str(), folded.c_str()) != RTNORM)
                continue;
            any = true;
            found.push_back(id);
        }
        if (!any)
            throw CommandFailed(L"Aucun calque ne correspond à « " + pattern + L" »");
    }
    return found;
}

void changeLayers(const std::wstring& prompt, bool offerCurrent, const LayerChange& what)
{
    for (const AcDbObjectId id : layersLike(askNames(prompt, offerCurrent)))
        change<Layer>(id, what);
}

// ---- the options

void listLayers()
{
    const std::wstring pattern = Prompt(L"Entrez les noms des calques à lister <*> : ").name();
    std::size_t count = 0;
    for (const AcDbObjectId id : layersLike({pattern.empty() ? L"*" : pattern})) {
        const AcDbObjectPointer<Layer> layer(id);
        if (!layer.object())
            continue;
        std::wstring state = layer->isOff() ? L"inactif" : L"actif";
        state += layer->isFrozen() ? L", gelé" : L"";
        state += layer->isLocked() ? L", verrouillé" : L"";
        say(L"  " + recordName(id) + L"  [" + state + L"]  couleur " + colorText(layer->color().colorIndex()) +
            L"  type de ligne " + recordName(layer->linetypeObjectId()));
        ++count;
    }
    say(countText(count, L"calque") + L"  Calque courant : « " + currentLayer() + L" »");
}

void makeCurrent(const std::wstring& name, bool mayMake)
{
    AcDbObjectId id = layerNamed(name);
    if (id.isNull() && mayMake)
        id = makeLayer(name);
    else if (id.isNull())
        throw CommandFailed(command_texts::isMissing(L"Le calque ", name));
    const bool frozen = [&] {
        const AcDbObjectPointer<Layer> layer(id);
        return layer.object() && layer->isFrozen();
    }();
    if (frozen)
        throw CommandFailed(L"Un calque gelé ne peut être le calque courant");
    drawing().setClayer(id);
}

void make()
{
    const auto names = askNames(L"Entrez le nom du nouveau calque (qui devient courant)", true);
    if (!names.empty())
        makeCurrent(names.front(), true);
}

void set()
{
    const auto names = askNames(L"Entrez le nom du calque à rendre courant", true);
    if (!names.empty())
        makeCurrent(names.front(), false);
}

void makeNew()
{
    for (const std::wstring& name : askNames(L"Entrez la liste des noms des nouveaux calques", false))
        if (layerNamed(name).isNull())
            makeLayer(name);
        else
            say(command_texts::isThere(L"Le calque ", name));
}

void turnOn()
{
    changeLayers(L"Entrez les noms des calques à activer", false, [](Layer& layer) {
        layer.setIsOff(false);
        return Acad::eOk;
    });
}

void turnOff()
{
    changeLayers(L"Entrez les noms des calques à désactiver", false, [](Layer& layer) {
        layer.setIsOff(true);
        return Acad::eOk;
    });
}

void freeze()
{
    const AcDbObjectId current = drawing().clayer();
    changeLayers(L"Entrez les noms des calques à geler", false, [current](Layer& layer) {
        if (layer.objectId() == current)
            throw CommandFailed(L"Le calque courant ne peut être gelé");
        return layer.setIsFrozen(true);
    });
}

void thaw()
{
    changeLayers(L"Entrez les noms des calques à libérer", false,
                 [](Layer& layer) { return layer.setIsFrozen(false); });
}

void lock()
{
    changeLayers(L"Entrez les noms des calques à verrouiller", false, [](Layer& layer) {
        layer.setIsLocked(true);
        return Acad::eOk;
    });
}

void unlock()
{
    changeLayers(L"Entrez les noms des calques à déverrouiller", false, [](Layer& layer) {
        layer.setIsLocked(false);
        return Acad::eOk;
    });
}

void setColor()
{
    const auto index = colorNamed(Prompt(L"Entrez la couleur (1 à 255, ou son nom) : ").text(false));
    if (!index || *index < 1 || *index > 255)
        throw CommandFailed(L"Une couleur de 1 à 255, ou son nom, est attendue");
    AcCmColor color;
    color.setColorIndex(*index);
    changeLayers(L"Entrez les noms des calques de la couleur " + colorText(*index), true, [color](Layer& layer) {
        const bool off = layer.isOff();
        layer.setColor(color);
        layer.setIsOff(off);
        return Acad::eOk;
    });
}

void setLinetype()
{
    const std::wstring typed = Prompt(L"Entrez le nom du type de ligne <Continuous> : ").name();
    const std::wstring name = typed.empty() ? L"Continuous" : typed;
    const AcDbObjectId linetype = recordNamed(drawing().linetypeTableId(), name);
    if (linetype.isNull())
        throw CommandFailed(command_texts::isNotInDrawing(L"Le type de ligne ", name));
    changeLayers(L"Entrez les noms des calques du type de ligne « " + recordName(linetype) + L" »", true,
                 [linetype](Layer& layer) {
                     layer.setLinetypeObjectId(linetype);
                     return Acad::eOk;
                 });
}

void renameLayer()
{
    const std::wstring former = Prompt(L"Entrez l'ancien nom du calque : ").name();
    renameRecord(layerNamed(former), former);
}

using LayerOption = void (*)();
constexpr std::pair<const wchar_t*, LayerOption> kOptions[] = {
    {L"?", listLayers},       {L"Make", make},   {L"Set", set},        {L"New", makeNew},
    {L"ON", turnOn},          {L"OFF", turnOff}, {L"Color", setColor}, {L"Ltype", setLinetype},
    {L"Freeze", freeze},      {L"Thaw", thaw},   {L"LOck", lock},      {L"Unlock", unlock},
    {L"Rename", renameLayer},
};

} // namespace

void commands::layer()
{
    say(L"Calque courant : « " + currentLayer() + L" »");
    for (OptionsAsked options;;) {
        const std::wstring word =
            Prompt(L"Entrez une option [?/CRéer/Définir/Nouveau/REnommer/ACtif/INactif/COuleur/Typeligne/Geler/"
                   L"Libérer/Verrouiller/déverrOuiller] : ")
                .keywords(L"? CRéer Définir Nouveau REnommer ACtif INactif COuleur Typeligne Geler Libérer Verrouiller "
                          L"déverrOuiller _ ? Make Set New Rename ON OFF Color Ltype Freeze Thaw LOck Unlock")
                .keyword();
        if (word.empty())
            return options.end();
        for (const auto& [option, carryOut] : kOptions)
            if (word == option)
                options.carryOut(carryOut);
    }
}
