// Angles of drawings older than R13: LibreDWG's DXF writer states them in radians, where DXF has degrees.
// Whether it did is told by what the same library reads: an angle of the text that is one of those of its class as they
// are, and not once they are turned into degrees.

import { fieldOf, hasHandles, objectsOf } from './library.mjs';

// By DXF name: group code and the library's name of each angle.
const angles = {
  ARC: [[50, 'start_angle'], [51, 'end_angle']],
  TEXT: [[50, 'rotation'], [51, 'oblique_angle']],
  ATTRIB: [[50, 'rotation'], [51, 'oblique_angle']],
  ATTDEF: [[50, 'rotation'], [51, 'oblique_angle']],
  INSERT: [[50, 'rotation']],
  SHAPE: [[50, 'rotation'], [51, 'oblique_angle']],
  VERTEX: [[50, 'tangent_dir']],
  DIMENSION: [[50, 'dim_rotation'], [51, 'horiz_dir'], [52, 'oblique_angle'], [53, 'text_rotation']],
  STYLE: [[50, 'oblique_angle']],
};

const degrees = (radians) => (radians * 180) / Math.PI;
const digits = (value) => value.toPrecision(12); // the text has 16, the last ones rounded

function angleValues(library, data) {
  const values = new Map(); // "ARC 50": those read
  for (const object of objectsOf(library, data)) {
    const name = library.dwg_object_get_dxfname(object);
    for (const [code, field] of angles[name] ?? []) {
      const read = fieldOf(library, object, field);
      if (!read?.success || !read.data)
        continue; // none, or 0
      const key = `${name} ${code}`;
      if (!values.has(key))
        values.set(key, []);
      values.get(key).push(read.data);
    }
  }
  return values;
}

// Tags as [place of the value, code, value], with the name of their record.
function* tagsOf(dxf) {
  let name = '';
  for (let at = 0; at < dxf.length;) {
    const codeEnd = dxf.indexOf('\r\n', at);
    const value = codeEnd + 2;
    const end = dxf.indexOf('\r\n', value);
    if (codeEnd < 0 || end < 0)
      return;
    const code = Number(dxf.toString('latin1', at, codeEnd));
    if (code === 0)
      name = dxf.toString('latin1', value, end);
    yield { name, code, value, end };
    at = end + 2;
  }
}

export function mendAngles(dxf, library, data) {
  if (hasHandles(library, data)) // as R13 brought them
    return dxf;
  const values = angleValues(library, data);
  const asRead = new Map([...values].map(([key, list]) => [key, new Map(list.map((value) => [digits(value), value]))]));
  const inDegrees = new Map([...values].map(([key, list]) => [key, new Set(list.map(degrees).map(digits))]));
  const pieces = [];
  let copied = 0;
  for (const { name, code, value, end } of tagsOf(dxf)) {
    const key = `${name} ${code}`;
    if (!asRead.has(key))
      continue;
    const angle = digits(Number(dxf.toString('latin1', value, end)));
    if (!asRead.get(key).has(angle) || inDegrees.get(key).has(angle))
      continue;
    pieces.push(dxf.subarray(copied, value), Buffer.from(String(degrees(asRead.get(key).get(angle)))));
    copied = end;
  }
  return copied === 0 ? dxf : Buffer.concat([...pieces, dxf.subarray(copied)]);
}
