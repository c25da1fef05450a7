// What libdxfrw finds in DWG and DXF files, one JSON object a line:
//   node read_libdxfrw.mjs MODULES FILE...
import fs from 'node:fs';
import path from 'node:path';
import { pathToFileURL } from 'node:url';

const [modules, ...files] = process.argv.slice(2);
const home = path.resolve(modules, '@mlightcad/libdxfrw-web/dist');
const { default: create } = await import(pathToFileURL(path.join(home, 'libdxfrw.js')).href);
const library = await create({ locateFile: (name) => path.join(home, name), print: () => {},
                               printErr: () => {} });

const list = (vector) => Array.from({ length: vector.size() }, (_, i) => vector.get(i));
const names = (vector) => list(vector).map((e) => e.name).sort();
const kind = (entity) => entity.eType.constructor.name.replace(/^DRW_ETYPE_/, '');

function read(file, handler) {
  const bytes = fs.readFileSync(file);
  if (file.endsWith('.dxf')) {
    const reader = new library.DRW_DxfRW(bytes.toString('latin1'));
    return [reader.read(handler, false), reader.getError()];
  }
  const reader = new library.DRW_DwgR(
    bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.byteLength));
  return [reader.read(handler, false), reader.getError()];
}

function answerFor(file) {
  const drawing = new library.DRW_Database();
  const handler = new library.DRW_FileHandler();
  handler.database = drawing;
  const [result, error] = read(file, handler);
  // Its last stage (objects: layouts) fails on sound files after the entities were read.
  const harmless = error === library.DWR_Error?.BAD_READ_OBJECTS ||
                   error === library.DRW_Error?.BAD_READ_OBJECTS;
  const entities = {};
  const countAll = (vector) => {
    for (const entity of list(vector)) entities[kind(entity)] = (entities[kind(entity)] ?? 0) + 1;
  };
  if (drawing.mBlock) countAll(drawing.mBlock.entities);
  for (const block of list(drawing.blocks)) countAll(block.entities);
  return { file, accepted: result || harmless, error: error?.constructor?.name ?? String(error),
           entities, layers: names(drawing.layers), blocks: names(drawing.blocks) };
}

let out = '';
for (const file of files) {
  try {
    out += JSON.stringify(answerFor(file)) + '\n';
  } catch (error) {
    out += JSON.stringify({ file, accepted: false, error: String(error) }) + '\n';
  }
}
process.stdout.write(out, () => process.exit(0));
