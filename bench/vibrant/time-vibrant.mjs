// node-vibrant's palette on each PNG of a folder, timed per icon like our colour analysis:
// each icon is decoded first (not timed), then its palette is made 5 times and the median kept.
// Prints one line per setting: name, icons, median ms, 95th percentile ms.
//   node time-vibrant.mjs DIR
import { Vibrant } from "node-vibrant/node";
import { readdirSync, readFileSync } from "node:fs";
import path from "node:path";

const dir = process.argv[2];
const runs = 5;
const files = readdirSync(dir)
  .filter((name) => name.endsWith(".png"))
  .sort();

function percentile(values, p) {
  const sorted = [...values].sort((a, b) => a - b);
  return sorted[Math.round(p * (sorted.length - 1))];
}

async function paletteTime(buffer, opts) {
  const times = [];
  for (let run = 0; run < runs; run++) {
    const vibrant = new Vibrant(buffer, opts);
    const image = await new vibrant.opts.ImageClass().load(buffer);
    const start = process.hrtime.bigint();
    await vibrant._process(image, { generators: ["default"] });
    times.push(Number(process.hrtime.bigint() - start) / 1e6);
  }
  return percentile(times, 0.5);
}

async function decodeAndPaletteTime(buffer, opts) {
  const times = [];
  for (let run = 0; run < runs; run++) {
    const start = process.hrtime.bigint();
    await new Vibrant(buffer, opts).getPalette();
    times.push(Number(process.hrtime.bigint() - start) / 1e6);
  }
  return percentile(times, 0.5);
}

const settings = [
  // Every pixel of the 128 px icon, as our analysis reads them.
  ["vibrant_quality1", paletteTime, { quality: 1 }],
  // Its default: the icon scaled down 5 times first.
  ["vibrant_default", paletteTime, {}],
  ["vibrant_default_with_png_decode", decodeAndPaletteTime, {}],
];

const buffers = files.map((name) => readFileSync(path.join(dir, name)));
for (const [name, time, opts] of settings) {
  const perIcon = [];
  for (const buffer of buffers) perIcon.push(await time(buffer, opts));
  console.log(
    `${name} ${perIcon.length} ${percentile(perIcon, 0.5).toFixed(4)} ${percentile(perIcon, 0.95).toFixed(4)}`
  );
}
