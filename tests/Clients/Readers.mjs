// Loads files with verovio and alphaTab: node Readers.mjs FILE...
//
// Prints a JSON list with one entry a file: the number of pages that verovio draws, and each note
// that alphaTab reads as [bar, string, fret], the bottom string being 0. Every warning of loading goes
// to standard error.

import fs from 'node:fs';
import * as alphaTab from '@coderline/alphatab';
import createVerovio from 'verovio/wasm';
import { enableLog, LOG_ERROR, LOG_WARNING, VerovioToolkit } from 'verovio/esm';

const module = await createVerovio();
const verovio = new VerovioToolkit(module);
alphaTab.Logger.logLevel = alphaTab.LogLevel.Warning;
alphaTab.Logger.log = { debug() {}, info() {}, warning: console.error, error: console.error };

function draw(bytes) {
    enableLog(LOG_WARNING, module);
    if (!verovio.loadData(bytes.toString())) {
        throw new Error('verovio cannot load the file');
    }
    const pages = verovio.getPageCount();
    // Its drawing takes the ties of a chord on a tab stave for each other's.
    enableLog(LOG_ERROR, module);
    for (let page = 1; page <= pages; ++page) {
        verovio.renderToSVG(page);
    }
    return pages;
}

function readNotes(bytes) {
    const score = alphaTab.importer.ScoreLoader.loadScoreFromBytes(bytes, new alphaTab.Settings());
    const stave = score.tracks[0].staves[0];
    return stave.bars.flatMap(bar => bar.voices[0].beats.flatMap(
        beat => beat.notes.map(note => [bar.index, note.string - 1, note.fret])));
}

const results = process.argv.slice(2).map(name => {
    const bytes = fs.readFileSync(name);
    return { pages: draw(bytes), notes: readNotes(bytes) };
});
process.stdout.write(JSON.stringify(results));
