// What LibreDWG's DXF writer does to the symbol tables is mended here, from what the same library reads in the DWG:
// it writes every layer as turned off, and leaves out the last two records of the linetype and application tables.
// Everything else in its text stays as it is, byte for byte.

import { handleOf, hasHandles, objectsOf } from './library.mjs';

const objectTypes = { layer: 51, linetype: 57, application: 67 };

// The tables as the library reads them. Texts are Latin-1 strings whose characters are the bytes of the DXF text.
export function readTables(library, data) {
  const tables = { layersOff: new Map(), linetypes: [], applications: [] };
  if (!hasHandles(library, data))
    return tables; // the writer's fault is not in these: they have no such records
  const isUnicode = library.dwg_get_version_type(data) >= library.Dwg_Version_Type.R_2007.value;
  for (const object of objectsOf(library, data)) {
    const type = library.dwg_object_get_fixedtype(object);
    if (type === objectTypes.layer)
      tables.layersOff.set(handleOf(library, object), field(library, object, 'off') !== 0);
    else if (type === objectTypes.linetype)
      tables.linetypes.push(linetype(library, object, isUnicode));
    else if (type === objectTypes.application)
      tables.applications.push(tableRecord(library, object, isUnicode));
  }
  return tables;
}

function field(library, object, name) {
  return library.dwg_dynapi_entity_value(library.dwg_object_to_object_tio(object), name).data;
}

function text(library, object, name, isUnicode) {
  const { data, bin } = library.dwg_dynapi_entity_value(library.dwg_object_to_object_tio(object), name);
  // Before Unicode, `bin` has the bytes in the drawing's code page, and `data` a vain attempt at decoding them.
  const bytes = bin && !isUnicode ? Buffer.from(Object.values(bin)) : Buffer.from(data ?? '', 'utf8');
  return bytes.toString('latin1').replace(/[\r\n\0]/g, ' ');
}

function tableRecord(library, object, isUnicode) {
  return {
    handle: handleOf(library, object),
    name: text(library, object, 'name', isUnicode),
    flags: field(library, object, 'flag') & 0xff,
  };
}

function linetype(library, object, isUnicode) {
  const dashes = field(library, object, 'dashes');
  const dashCount = field(library, object, 'numdashes');
  return {
    ...tableRecord(library, object, isUnicode),
    description: text(library, object, 'description', isUnicode),
    length: field(library, object, 'pattern_len'),
    dashes: (dashes ? library.dwg_ptr_to_ltype_dash_array(dashes, dashCount) : []).map((dash) => ({
      ...dash,
      style: dash.style ? library.dwg_ref_get_absref(dash.style).toString(16).toUpperCase() : '0',
    })),
  };
}

// The DXF text with its tables mended, as pieces that follow each other.
export function mendTables(dxf, tables) {
  const start = dxf.indexOf('  2\r\nTABLES\r\n');
  const end = dxf.indexOf('  0\r\nENDSEC\r\n', start);
  if (start < 0 || end < 0)
    return [dxf];
  const tags = tagsOf(dxf.toString('latin1', start, end));
  const mended = mendedTags(tags, tables);
  return [dxf.subarray(0, start), Buffer.from(mended.map(lines).join(''), 'latin1'), dxf.subarray(end)];
}

function tagsOf(section) {
  const all = section.split('\r\n');
  const tags = [];
  for (let i = 0; i + 1 < all.length; i += 2)
    tags.push([all[i], all[i + 1]]);
  return tags;
}

function lines([code, value]) {
  return `${code}\r\n${value}\r\n`;
}

function mendedTags(tags, { layersOff, linetypes, applications }) {
  const result = [];
  const written = new Set(); // handles of the records of the current table
  let record = '';
  let handle = '';
  let table = null; // its name and handle
  for (const [code, value] of tags) {
    const group = Number(code);
    if (group === 0) {
      record = value;
      if (record === 'TABLE')
        table = { name: '', handle: '' };
      if (record === 'ENDTAB' && table?.name === 'LTYPE')
        result.push(...linetypes.filter((one) => !written.has(one.handle)).flatMap((one) => linetypeTags(one, table)));
      if (record === 'ENDTAB' && table?.name === 'APPID')
        result.push(...applications.filter((one) => !written.has(one.handle)).flatMap((one) => recordTags('APPID', 'AcDbRegAppTableRecord', one, table)));
    } else if (record === 'TABLE') {
      if (group === 2)
        table.name = value;
      else if (group === 5)
        table.handle = value;
      written.clear();
    } else if (group === 5) {
      handle = value;
      written.add(handle);
    }
    const isLayerColour = record === 'LAYER' && group === 62 && layersOff.has(handle);
    result.push([code, isLayerColour ? signedColour(value, layersOff.get(handle)) : value]);
  }
  return result;
}

function signedColour(value, isOff) {
  const index = Math.abs(Number(value));
  return String(isOff ? -index : index).padStart(6);
}

function recordTags(type, subclass, { handle, name, flags }, table) {
  return [
    ['  0', type],
    ['  5', handle],
    ['330', table.handle],
    ['100', 'AcDbSymbolTableRecord'],
    ['100', subclass],
    ['  2', name],
    [' 70', flags],
  ];
}

function linetypeTags(linetype, table) {
  return [
    ...recordTags('LTYPE', 'AcDbLinetypeTableRecord', linetype, table),
    ['  3', linetype.description],
    [' 72', 65],
    [' 73', linetype.dashes.length],
    [' 40', linetype.length],
    ...linetype.dashes.flatMap(dashTags),
  ];
}

function dashTags(dash) {
  const plain = [
    [' 49', dash.length],
    [' 74', dash.shape_flag],
  ];
  if (dash.shape_flag === 0)
    return plain;
  return [
    ...plain,
    [' 75', dash.complex_shapecode],
    ['340', dash.style],
    [' 46', dash.scale],
    [' 50', (dash.rotation * 180) / Math.PI],
    [' 44', dash.x_offset],
    [' 45', dash.y_offset],
    ...(dash.shape_flag & 2 ? [['  9', dash.text]] : []),
  ];
}
