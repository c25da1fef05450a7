// What libredwg finds in DWG files, one JSON object a line:
//   node read_libredwg.mjs MODULES FILE.dwg...
// Each drawing is also converted to DXF beside it (NAME.libredwg.dxf), for ezdxf to read.
import fs from 'node:fs';
import path from 'node:path';
import { pathToFileURL } from 'node:url';

const [modules, ...files] = process.argv.slice(2);
const home = path.resolve(modules, '@mlightcad/libredwg-web');
const { Dwg_File_Type, LibreDwg } = await import(
  pathToFileURL(path.join(home, 'dist/libredwg-web.js')).href);

// The library writes to the console; what it complains about is part of the answer.
let complaints = [];
console.log = console.warn = console.error = (...words) => complaints.push(words.join(' '));
const library = await LibreDwg.create(path.join(home, 'wasm') + '/');

const count = (into, type) => (into[type] = (into[type] ?? 0) + 1);
const countAll = (entities, into) => {
  for (const entity of entities ?? []) {
    count(into, entity.type);
    for (const attribute of entity.attribs ?? []) count(into, attribute.type ?? 'ATTRIB');
  }
};

function answerFor(file) {
  complaints = [];
  const bytes = fs.readFileSync(file);
  const data = library.dwg_read_data(bytes, Dwg_File_Type.DWG);
  const drawing = data ? library.convert(data) : undefined;
  const answer = { file, accepted: drawing !== undefined, complaints };
  if (!drawing) return answer;
  const names = (table) => (drawing.tables[table]?.entries ?? []).map((e) => e.name).sort();
  answer.entities = {};
  for (const block of drawing.tables.BLOCK_RECORD.entries) countAll(block.entities, answer.entities);
  answer.layers = names('LAYER');
  answer.blocks = names('BLOCK_RECORD');
  answer.styles = names('STYLE');
  answer.ltypes = names('LTYPE');
  answer.appids = names('APPID');
  library.dwg_free(data);
  const dxf = library.dwg_write_dxf(bytes);
  if (dxf) fs.writeFileSync(file.replace(/\.dwg$/, '.libredwg.dxf'), dxf);
  return answer;
}

let out = '';
for (const file of files) {
  try {
    out += JSON.stringify(answerFor(file)) + '\n';
  } catch (error) {
    out += JSON.stringify({ file, accepted: false, complaints: [...complaints, String(error)] }) + '\n';
  }
}
process.stdout.write(out, () => process.exit(0));
