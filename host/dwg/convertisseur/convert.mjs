// convert.mjs DRAWING.dwg RESULT.dxf: converts a drawing with LibreDWG.
// Exit status 0: converted; standard error holds one line for each kind of thing that was lost on the way.
// One of `status` below: not converted; the last line of standard error says why. Lines are French, for the user.
// Any other is a fault in here: Node itself ends so.
import { appendFileSync, readFileSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { mendAngles } from './angles.mjs';
import { currentColour, mendCurrentColour } from './colours.mjs';
import { lostObjects } from './losses.mjs';
import { keepPictures } from './pictures.mjs';
import { mendTables, readTables } from './tables.mjs';

const status = { converted: 0, refused: 10, notInstalled: 11, fileError: 12, badCall: 13 };

// The library answers with a sum of these; from 128 on it gives up, below it has passed over what it could not read.
const firstFatalError = 128;
const errorTexts = [
  [1, 'sommes de contrôle fausses'],
  [2, "éléments d'un genre non pris en charge"],
  [4, "objets d'applications inconnues, laissés de côté"],
  [8, "objets d'un type inconnu, laissés de côté"],
  [16, "identifiants d'objets illisibles"],
  [32, 'données étendues illisibles'],
  [64, 'valeurs hors limites'],
  [128, 'liste des classes illisible'],
  [256, 'section absente ou illisible'],
  [512, 'page absente ou illisible'],
  [1024, 'erreur interne du convertisseur'],
  [2048, "ce n'est pas un dessin DWG, ou il est endommagé"],
  [4096, 'lecture ou écriture impossible'],
  [8192, 'mémoire insuffisante'],
];

function stop(code, reason) {
  console.error(reason);
  process.exit(code);
}

function textsOf(error) {
  const known = errorTexts.filter(([bit]) => error & bit).map(([, text]) => text);
  return known.length > 0 ? known : [`erreur ${error} du convertisseur`];
}

// The package's entry looks for its WebAssembly beside itself, where the package does not put it.
async function loadLibrary() {
  const here = dirname(fileURLToPath(import.meta.url));
  const wasm = join(here, 'node_modules', '@mlightcad', 'libredwg-web', 'wasm');
  try {
    const { createModule } = await import('@mlightcad/libredwg-web');
    // What the library itself prints is for its developers.
    return await createModule({ locateFile: (name) => join(wasm, name), print: () => {}, printErr: () => {} });
  } catch (error) {
    return stop(status.notInstalled, error.message);
  }
}

function readDrawing(path) {
  try {
    return readFileSync(path);
  } catch (error) {
    return stop(status.fileError, `lecture impossible (${error.code})`);
  }
}

// @param numbers of objects by their classes; nothing is said of none
function tell(what, numbers) {
  if (numbers.size > 0)
    console.error(`${what} : ${[...numbers].map(([name, count]) => `${count} ${name}`).join(', ')}`);
}

// LibreDWG sees no disk but its own in memory. Its writer reads the drawing itself, so it is read twice.
// @return the pieces of the DXF text, one after the other
function convert(library, drawing) {
  library.FS.writeFile('dessin.dwg', drawing, { canOwn: true });
  const error = library.dwg_write_dxf('dessin.dwg', 'dessin.dxf');
  if (error >= firstFatalError || !library.FS.analyzePath('dessin.dxf').exists)
    stop(status.refused, textsOf(error).join(', '));
  if (error !== 0)
    textsOf(error).forEach((text) => console.error(text));
  const dxf = Buffer.from(library.FS.readFile('dessin.dxf'));
  library.FS.unlink('dessin.dxf');
  const data = library.dwg_read_file('dessin.dwg').data;
  const whole = mendAngles(mendCurrentColour(dxf, currentColour(library, data)), library, data);
  const shown = keepPictures(whole, library, data);
  const pieces = mendTables(shown.dxf, readTables(library, data));
  tell("objets dont seule l'image est gardée", shown.kept);
  tell('objets lus, mais non convertis', lostObjects(library, data, pieces));
  return pieces;
}

function convertOrStop(library, drawing) {
  try {
    return convert(library, drawing);
  } catch {
    return stop(status.refused, 'le convertisseur a échoué sur ce dessin : il est endommagé, ou trop grand pour la mémoire');
  }
}

if (process.argv.length !== 4)
  stop(status.badCall, 'convert.mjs DESSIN.dwg RESULTAT.dxf');
const [source, target] = process.argv.slice(2);
const drawing = readDrawing(source);
const pieces = convertOrStop(await loadLibrary(), drawing);
try {
  writeFileSync(target, pieces[0]);
  pieces.slice(1).forEach((piece) => appendFileSync(target, piece));
} catch (error) {
  stop(status.fileError, `écriture impossible (${error.code})`);
}
process.exit(status.converted); // the library leaves nothing to wait for
