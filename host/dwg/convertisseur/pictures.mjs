// Entities that LibreDWG reads and its DXF writer leaves out: where the drawing has a picture of one, for programs that
// lack its class, it is written as a proxy that shows it. What the class keeps of its own is lost: the library does not
// give it. So the proxy bears a class of ours: a program that knows the other one would look for what is not there.

import { colourIndex } from './colours.mjs';
import { writtenHandles } from './losses.mjs';
import { handleOf, hasHandles, isEntity, objectsOf } from './library.mjs';

const lineWeights = [0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211];
const placed = { byOwner: 0, onPaper: 1 };
const linetypes = { byLayer: 0, byBlock: 1, continuous: 2 };
const firstClass = 500; // number of the first record of CLASSES
const bytesOfLine = 127;

// The tags from a place on, as [code, value].
function* tagsFrom(dxf, at) {
  while (at < dxf.length) {
    const value = dxf.indexOf('\r\n', at) + 2;
    const end = dxf.indexOf('\r\n', value);
    if (value < 2 || end < 0)
      return;
    yield [Number(dxf.toString('latin1', at, value - 2)), dxf.toString('latin1', value, end)];
    at = end + 2;
  }
}

// Where a section's ENDSEC stands, or a negative number.
function endOfSection(dxf, name) {
  const start = dxf.indexOf(`  0\r\nSECTION\r\n  2\r\n${name}\r\n`);
  return start < 0 ? start : dxf.indexOf('  0\r\nENDSEC\r\n', start);
}

// Names of layers and linetypes by their handles, as bytes of the text.
function namesByHandle(dxf) {
  const names = new Map();
  let record = '';
  let handle = '';
  for (const [code, value] of tagsFrom(dxf, Math.max(0, dxf.indexOf('  0\r\nTABLE\r\n')))) {
    if (code === 0) {
      if (value === 'ENDSEC')
        break;
      record = value;
    } else if (code === 5) {
      handle = value;
    } else if (code === 2 && (record === 'LAYER' || record === 'LTYPE')) {
      names.set(handle, value);
    }
  }
  return names;
}

// Where the blocks end, by the handles of their records.
function endsOfBlocks(dxf) {
  const marker = '  0\r\nENDBLK\r\n';
  const ends = new Map();
  for (let at = dxf.indexOf(marker); at >= 0; at = dxf.indexOf(marker, at + marker.length)) {
    let inGroup = false;
    for (const [code, value] of tagsFrom(dxf, at + marker.length)) {
      if (code === 102)
        inGroup = value.startsWith('{');
      else if (code === 330 && !inGroup)
        ends.set(value, at);
      else if (code === 0 || code === 100)
        break;
    }
  }
  return ends;
}

function common(library, object, name) {
  return library.dwg_dynapi_common_value(library.dwg_object_to_entity_tio(object), name).data;
}

function absolute(reference) {
  return reference.absolute_ref.toString(16).toUpperCase();
}

function lookTags(library, object, names) {
  const entity = library.dwg_object_to_entity(object);
  const colour = library.dwg_object_entity_get_color_object(entity);
  const linetype = common(library, object, 'ltype_flags');
  const named = { [linetypes.byBlock]: 'ByBlock', [linetypes.continuous]: 'Continuous' }[linetype]
    ?? names.get(absolute(library.dwg_object_entity_get_ltype_object_ref(entity)));
  const index = colourIndex(library, colour) ?? 256;
  const weight = common(library, object, 'linewt');
  const tags = [['  8', names.get(absolute(library.dwg_object_entity_get_layer_object_ref(entity))) ?? '0']];
  if (linetype !== linetypes.byLayer && named)
    tags.push(['  6', named]);
  if (index !== 256)
    tags.push([' 62', index]);
  if (colour.method === 0xc2)
    tags.push(['420', colour.rgb & 0xffffff]);
  if (weight < lineWeights.length)
    tags.push(['370', lineWeights[weight]]);
  if (common(library, object, 'ltype_scale') !== 1)
    tags.push([' 48', common(library, object, 'ltype_scale')]);
  if (common(library, object, 'invisible'))
    tags.push([' 60', 1]);
  return tags;
}

function pictureTags(picture, sizeCode) {
  const tags = [[sizeCode, picture.length]];
  for (let at = 0; at < picture.length; at += bytesOfLine)
    tags.push(['310', picture.toString('hex', at, at + bytesOfLine).toUpperCase()]);
  return tags;
}

function text(tags) {
  return Buffer.from(tags.map(([code, value]) => `${code}\r\n${value}\r\n`).join(''), 'latin1');
}

// Classes of ours behind those of the text, by the name of the class that was lost.
class Classes {
  constructor(dxf, statesCount) {
    const marker = '  0\r\nCLASS\r\n';
    this.end = endOfSection(dxf, 'CLASSES');
    this.next = firstClass;
    this.statesCount = statesCount;
    this.numbers = new Map();
    for (let at = dxf.indexOf(marker); at >= 0 && at < this.end; at = dxf.indexOf(marker, at + 1))
      this.next++;
  }

  numberOf(name) {
    if (!this.numbers.has(name))
      this.numbers.set(name, this.next++);
    return this.numbers.get(name);
  }

  text() {
    return text([...this.numbers.keys()].flatMap((name) => [
      ['  0', 'CLASS'], ['  1', `VELA_${name}`], ['  2', `Vela_${name}`], ['  3', 'Vela'], [' 90', 0],
      ...(this.statesCount ? [[' 91', 0]] : []), ['280', 1], ['281', 1],
    ]));
  }
}

// The entities that are lost, and have a picture, as { object, picture }.
function* withPicture(library, data, written) {
  for (const object of objectsOf(library, data)) {
    if (!isEntity(library, object) || written.has(handleOf(library, object)))
      continue;
    const { success, data: picture } = library.dwg_entity_get_preview(object);
    if (success && picture?.length > 8) // no more than its own head
      yield { object, picture: Buffer.from(picture) }; // the library's own may move
  }
}

// Where in the text entities of a space or block go: { owner, place, onPaper }; no place where it is not known.
class Places {
  constructor(dxf, library, data) {
    this.library = library;
    this.spaces = { model: library.dwg_model_space_ref(data), paper: library.dwg_paper_space_ref(data) };
    this.entities = endOfSection(dxf, 'ENTITIES');
    this.blocks = endsOfBlocks(dxf);
  }

  of(object) {
    const mode = common(this.library, object, 'entmode');
    if (mode === placed.byOwner) {
      const entity = this.library.dwg_object_to_entity(object);
      const owner = absolute(this.library.dwg_object_entity_get_ownerhandle_object(entity));
      return { owner, place: this.blocks.get(owner) ?? -1, onPaper: false };
    }
    const onPaper = mode === placed.onPaper;
    const space = onPaper ? this.spaces.paper : this.spaces.model;
    return { owner: this.library.dwg_ref_get_absref(space).toString(16).toUpperCase(), place: this.entities, onPaper };
  }
}

function insert(dxf, texts) {
  const pieces = [];
  let copied = 0;
  for (const place of [...texts.keys()].sort((a, b) => a - b)) {
    pieces.push(dxf.subarray(copied, place), ...texts.get(place));
    copied = place;
  }
  return Buffer.concat([...pieces, dxf.subarray(copied)]);
}

// @return the text with the pictures, and how many of which class
export function keepPictures(dxf, library, data) {
  const kept = new Map();
  const versions = library.Dwg_Version_Type;
  const version = library.dwg_get_version_type(data);
  const lost = hasHandles(library, data) ? [...withPicture(library, data, writtenHandles([dxf]))] : [];
  const classes = new Classes(dxf, version >= versions.R_2004.value);
  if (lost.length === 0 || classes.end < 0)
    return { dxf, kept };
  const names = namesByHandle(dxf);
  const places = new Places(dxf, library, data);
  const sizeCode = version >= versions.R_2010.value ? '160' : ' 92';
  const texts = new Map(); // by place
  for (const { object, picture } of lost) {
    const { owner, place, onPaper } = places.of(object);
    if (place < 0)
      continue;
    const name = library.dwg_object_get_dxfname(object);
    if (!texts.has(place))
      texts.set(place, []);
    texts.get(place).push(text([
      ['  0', 'ACAD_PROXY_ENTITY'], ['  5', handleOf(library, object)], ['330', owner],
      ['100', 'AcDbEntity'], ...(onPaper ? [[' 67', 1]] : []), ...lookTags(library, object, names),
      ...pictureTags(picture, sizeCode),
      ['100', 'AcDbProxyEntity'], [' 90', 498], [' 91', classes.numberOf(name)], [' 93', 0], [' 94', 0],
    ]));
    kept.set(name, (kept.get(name) ?? 0) + 1);
  }
  if (kept.size > 0)
    texts.set(classes.end, [classes.text()]);
  return { dxf: insert(dxf, texts), kept };
}
