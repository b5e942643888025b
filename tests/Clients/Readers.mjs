// Loads MusicXML files with verovio and alphaTab, and MIDI files: node Readers.mjs FILE...
//
// Prints a JSON list with the notes of each file: [bar, string, fret] as alphaTab reads them, the
// bottom string being 0, or [onset, pitch, length] in ticks, 1024 to a whole note. Every warning of
// loading goes to standard error.

import fs from 'node:fs';
import midi from '@tonejs/midi';
import * as alphaTab from '@coderline/alphatab';
import createVerovio from 'verovio/wasm';
import { enableLog, LOG_ERROR, LOG_WARNING, VerovioToolkit } from 'verovio/esm';

const module = await createVerovio();
const verovio = new VerovioToolkit(module);
alphaTab.Logger.logLevel = alphaTab.LogLevel.Warning;
alphaTab.Logger.log = { debug() {}, info() {}, warning: console.error, error: console.error };

function draw(bytes) {
    enableLog(LOG_WARNING, module);
    if (!verovio.loadData(bytes.toString()) || verovio.getPageCount() === 0) {
        throw new Error('verovio cannot load the file');
    }
    // Its drawing takes the ties of a chord on a tab stave for each other's.
    enableLog(LOG_ERROR, module);
    for (let page = 1; page <= verovio.getPageCount(); ++page) {
        verovio.renderToSVG(page);
    }
}

function readFrets(bytes) {
    const score = alphaTab.importer.ScoreLoader.loadScoreFromBytes(bytes, new alphaTab.Settings());
    return score.tracks[0].staves[0].bars.flatMap(bar => bar.voices[0].beats.flatMap(
        beat => beat.notes.map(note => [bar.index, note.string - 1, note.fret])));
}

function readSounds(bytes) {
    const { header, tracks } = new midi.Midi(bytes);
    const scale = ticks => Math.round(ticks * 256 / header.ppq);
    // The player lets go of a key one of its own ticks before the end of the note.
    return tracks.flatMap(track => track.notes.map(
        note => [scale(note.ticks), note.midi, scale(note.durationTicks + 1)]));
}

const results = process.argv.slice(2).map(name => {
    const bytes = fs.readFileSync(name);
    if (name.endsWith('.mid')) {
        return readSounds(bytes);
    }
    draw(bytes);
    return readFrets(bytes);
});
process.stdout.write(JSON.stringify(results));
