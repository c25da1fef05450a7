// What shx-parser draws of fonts, one JSON object a line for each shape that LISTING names:
//   node read_shx.mjs MODULES FONT LISTING
import fs from 'node:fs';
import path from 'node:path';
import { pathToFileURL } from 'node:url';

const [modules, file, listing] = process.argv.slice(2);
const home = path.resolve(modules, '@mlightcad/shx-parser/dist/index.es.js');
const { ShxFont } = await import(pathToFileURL(home).href);
const bytes = fs.readFileSync(file);
const font = new ShxFont(
  bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.byteLength));

let out = '';
for (const line of fs.readFileSync(listing, 'utf8').trim().split('\n')) {
  const { code, size } = JSON.parse(line);
  const shape = font.getCharShape(code, size);
  out += JSON.stringify({
    code,
    end: shape?.lastPoint ? [shape.lastPoint.x, shape.lastPoint.y] : null,
    strokes: (shape?.polylines ?? []).map((line) => line.map((p) => [p.x, p.y])),
  }) + '\n';
}
process.stdout.write(out);
