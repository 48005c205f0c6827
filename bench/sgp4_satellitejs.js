// satellite.js on the schedule of sgp4_bench: one million propagations of
// sets 25544 and 09880 at times stepping one minute through a day.
// Usage: node sgp4_satellitejs.js <folder holding node_modules/satellite.js> [propagations]
const path = require('path');
const satellite = require(path.join(process.argv[2], 'node_modules', 'satellite.js'));
const count = Number(process.argv[3] || 1000000);

function rate(line1, line2) {
  const rec = satellite.twoline2satrec(line1, line2);
  let checksum = 0;
  const begin = process.hrtime.bigint();
  for (let i = 0; i < count; i++) {
    const pv = satellite.sgp4(rec, i % 1440);
    if (pv && pv.position) checksum += pv.position.x + pv.velocity.z;
  }
  const seconds = Number(process.hrtime.bigint() - begin) / 1e9;
  return [count / seconds, checksum];
}

const near = rate('1 25544U 98067A   05207.31276620  .00009213  00000-0  73642-4 0  9958',
                  '2 25544  51.6451  60.5367 0003083 157.4370 169.9096 15.71943135381834');
const deep = rate('1 09880U 77021A   06176.56157475  .00000421  00000-0  10000-3 0  9814',
                  '2 09880  64.5968 349.3786 7069051 270.0229  16.3320  2.00813614112380');
console.log(`satellite.js near-earth: ${Math.round(near[0])} propagations/s`);
console.log(`satellite.js deep-space: ${Math.round(deep[0])} propagations/s`);
console.error(`checksum ${(near[1] + deep[1]).toFixed(6)}`);
