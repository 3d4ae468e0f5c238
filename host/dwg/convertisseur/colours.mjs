// The current colour of a drawing. From R2004 on LibreDWG reads it as three bytes under a byte that says what they are,
// and its DXF writer states their index, which is then 0: "by block".

const methods = { byLayer: 0xc0, byBlock: 0xc1, trueColour: 0xc2, index: 0xc3 };
const byBlock = 0;
const byLayer = 256;
const mostIndex = 257; // "none"

// The index to state, or null where what the library read says nothing.
export function colourIndex(library, { index, method, rgb }) {
  switch (method) {
    case methods.byLayer:
      return byLayer;
    case methods.byBlock:
      return byBlock;
    case methods.index:
      return rgb & 0xff;
    case methods.trueColour: // the header has no place for one
      return library.dwg_find_color_index(rgb & 0xffffff);
    default:
      return index >= 0 && index <= mostIndex ? index : null;
  }
}

export function currentColour(library, data) {
  const read = library.dwg_dynapi_header_value(data, 'CECOLOR');
  return read?.success && read.data ? colourIndex(library, read.data) : null;
}

// The DXF text with that current colour; the same text where it has it, or states none.
export function mendCurrentColour(dxf, index) {
  const start = dxf.indexOf('\r\n$CECOLOR\r\n 62\r\n');
  if (start < 0 || index === null)
    return dxf;
  const value = start + '\r\n$CECOLOR\r\n 62\r\n'.length;
  const end = dxf.indexOf('\r\n', value);
  if (Number(dxf.toString('latin1', value, end)) === index)
    return dxf;
  return Buffer.concat([dxf.subarray(0, value), Buffer.from(String(index).padStart(6)), dxf.subarray(end)]);
}
