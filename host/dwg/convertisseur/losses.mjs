// What LibreDWG read in a drawing and its DXF writer left out, counted by class: for the user, who would not know.
// From R13 on every object has a handle, and is looked for by it. Older entities have none, and are counted.

import { handleOf, hasHandles, isEntity, objectsOf } from './library.mjs';

// Of tables that DXF has no place for, and of places that hold nothing.
const withoutRecord = new Set(['VX_CONTROL', 'VX_TABLE_RECORD', 'DUMMY', 'UNUSED']);

const handleLines = ['\r\n  5\r\n', '\r\n105\r\n'].map((text) => Buffer.from(text));
const recordLine = Buffer.from('\r\n  0\r\n');

// The line that follows each place where `marker` stands.
function* linesAfter(dxf, marker) {
  for (let at = dxf.indexOf(marker); at >= 0; at = dxf.indexOf(marker, at + 2)) {
    const start = at + marker.length;
    const end = dxf.indexOf('\r\n', start);
    yield dxf.toString('latin1', start, end < 0 ? dxf.length : end).trim();
  }
}

function add(counts, name, number = 1) {
  counts.set(name, (counts.get(name) ?? 0) + number);
}

export function writtenHandles(pieces) {
  const written = new Set();
  for (const piece of pieces)
    for (const marker of handleLines)
      for (const handle of linesAfter(piece, marker))
        written.add(handle);
  return written;
}

function lostByHandle(library, data, pieces) {
  const written = writtenHandles(pieces);
  const lost = new Map();
  for (const object of objectsOf(library, data)) {
    const name = library.dwg_object_get_dxfname(object);
    if (!written.has(handleOf(library, object)) && !withoutRecord.has(name))
      add(lost, name);
  }
  return lost;
}

function lostByCount(library, data, pieces) {
  const left = new Map();
  for (const object of objectsOf(library, data))
    if (isEntity(library, object))
      add(left, library.dwg_object_get_dxfname(object));
  for (const piece of pieces)
    for (const name of linesAfter(piece, recordLine))
      if (left.has(name))
        add(left, name, -1);
  return new Map([...left].filter(([, number]) => number > 0));
}

// @param pieces of the DXF text, one after the other
// @return a map of class to number, in the order in which the drawing has them; empty where all was written
export function lostObjects(library, data, pieces) {
  return (hasHandles(library, data) ? lostByHandle : lostByCount)(library, data, pieces);
}
