// What the converter mends and tells, on drawings of a library made by hand: none of such versions is at hand.
import assert from 'node:assert/strict';
import { argv } from 'node:process';

const folder = argv[2];
const { mendAngles } = await import(`${folder}/angles.mjs`);
const { colourIndex, mendCurrentColour } = await import(`${folder}/colours.mjs`);
const { lostObjects } = await import(`${folder}/losses.mjs`);

const r13 = 10;

// Objects are { name, handle, entity, fields }.
function library(version, objects) {
  return {
    Dwg_Version_Type: { R_13b1: { value: r13 } },
    Dwg_Object_Supertype: { SUPERTYPE_ENTITY: { value: 0 } },
    dwg_get_version_type: () => version,
    dwg_get_num_objects: () => objects.length,
    dwg_get_object: (_, i) => objects[i],
    dwg_object_get_dxfname: (object) => object.name,
    dwg_object_get_supertype: (object) => (object.entity ? 0 : 1),
    dwg_object_get_handle_object: (object) => ({ value: BigInt(object.handle) }),
    // Each kind of object has a place of its own, as in the library: asked for at the other's, there is nothing.
    dwg_object_to_object_tio: (object) => (object.entity ? 0 : object),
    dwg_object_to_entity_tio: (object) => (object.entity ? object : 0),
    dwg_dynapi_entity_value: (object, field) => ({ success: field in (object.fields ?? {}), data: object.fields?.[field] }),
    dwg_find_color_index: (rgb) => (rgb === 0xff0000 ? 1 : 7),
  };
}

const text = (...lines) => Buffer.from(lines.map((line) => `${line}\r\n`).join(''), 'latin1');
const record = (name, ...tags) => ['  0', name, ...tags];

// ---- lost objects, by handle and by number
const entity = (name, handle) => ({ name, handle, entity: true });
const written = [text(...record('SECTION', '  2', 'ENTITIES'), ...record('LINE', '  5', 'A1')),
                 text(...record('DIMSTYLE', '105', '2B'), ...record('ENDSEC'))];
const read = [entity('LINE', 0xa1), entity('ACAD_PROXY_ENTITY', 0xa2), entity('ACAD_PROXY_ENTITY', 0xa3),
              { name: 'DIMSTYLE', handle: 0x2b }, { name: 'VX_CONTROL', handle: 0x0a }, entity('MULTILEADER', 0xa4)];
assert.deepEqual([...lostObjects(library(r13, read), 0, written)], [['ACAD_PROXY_ENTITY', 2], ['MULTILEADER', 1]]);
const old = [entity('LINE', 0), entity('ARC', 0), entity('ARC', 0), { name: 'LAYER', handle: 0 }];
assert.deepEqual([...lostObjects(library(r13 - 1, old), 0, [text(...record('SECTION'), ...record('LINE'), ...record('ARC'))])],
                 [['ARC', 1]]);

// ---- current colour
for (const [read, index] of [
  [{ index: 256, method: 0, rgb: 0 }, 256],
  [{ index: 0, method: 0xc0, rgb: 0 }, 256],
  [{ index: 0, method: 0xc1, rgb: 0 }, 0],
  [{ index: 0, method: 0xc3, rgb: 0xc3000005 }, 5],
  [{ index: 0, method: 0xc2, rgb: 0xc2ff0000 }, 1],
  [{ index: -3, method: 0, rgb: 0 }, null],
])
  assert.equal(colourIndex(library(r13, []), read), index);
const header = (colour) => text('  9', '$CECOLOR', ' 62', colour, '  9', '$CELTSCALE');
assert.deepEqual(mendCurrentColour(header('     0'), 256), header('   256'));
assert.equal(mendCurrentColour(header('     5'), 5).toString(), header('     5').toString());
assert.deepEqual(mendCurrentColour(header('     5'), null), header('     5'));

// ---- angles
const right = Math.PI / 2;
const arcs = [{ name: 'ARC', entity: true, fields: { start_angle: right, end_angle: 0 } },
              { name: 'TEXT', entity: true, fields: { rotation: 0.25 } }];
const drawing = (arc, rotation) => text(...record('ARC', ' 50', arc, ' 51', '0.0'), ...record('TEXT', ' 50', rotation),
                                        ...record('SOLID', ' 50', '0.25'), ...record('ENDSEC'));
const inRadians = drawing('1.570796326794897', '0.25');
assert.equal(mendAngles(inRadians, library(r13 - 1, arcs), 0).toString(),
             drawing('90', String(45 / Math.PI)).toString());
assert.equal(mendAngles(drawing('90.0', '14.32394487827058'), library(r13 - 1, arcs), 0).toString(),
             drawing('90.0', '14.32394487827058').toString(), 'a writer that has it right');
assert.equal(mendAngles(inRadians, library(r13, arcs), 0).toString(), inRadians.toString(), 'not so old');
