#include "RenderedTab.h"

#include <algorithm>
#include <array>
#include <map>
#include <random>
#include <string_view>

#include "TestSupport.h"

namespace tabulorix {

namespace {

// Names and MIDI note numbers, bottom string first. A stave without names has the first tuning.
struct Tuning {
    std::string_view m_Names;
    std::array<int, 6> m_Pitches;
};
constexpr Tuning kGuitarTunings[] = {{"EADGBE", {40, 45, 50, 55, 59, 64}},
                                     {"CGCFAD", {36, 43, 48, 53, 57, 62}}};
constexpr Tuning kBassTunings[] = {{"EADG", {28, 33, 38, 43}}, {"BEAD", {23, 28, 33, 38}}};

struct Signature {
    std::string_view m_Text;
    int m_BarTicks = 1024;
    int m_BeatTicks = 256;
};
constexpr Signature kSignatures[] = {{"4/4", 1024, 256}, {"3/4", 768, 256},   {"2/4", 512, 256},
                                     {"6/8", 768, 128},  {"12/8", 1536, 128}, {"2/2", 1024, 512}};

constexpr std::string_view kChordNames[] = {"C", "Am7", "F#sus4", "D/F#", "D6/9", "Bb7b5"};

// No two with one section word: a second one on a line may be overlooked.
constexpr std::string_view kLabels[] = {"Intro", "Verse 2", "[OUTRO]", "My riff no. 2"};

// A place of a bar's rhythm.
struct Cell {
    int m_Ticks;
    int m_Width;         // columns
    std::string m_Mark;  // for the rhythm line
    bool m_IsStruck = false;
    std::string m_Notes = {};  // as listed, where muted strings are left out
    std::string m_Chord = {};
};
using Cells = std::vector<Cell>;

enum class Rhythm { Letters, Counts, None };

int GetLength(std::string_view text) {
    return static_cast<int>(text.size());
}

// Puts the text at the column of a line that ends before it.
void Put(std::string& line, int column, std::string_view text) {
    line.resize(static_cast<std::size_t>(column), ' ');
    line += text;
}

class Renderer {
public:
    explicit Renderer(unsigned seed) : m_Engine(seed) {}

    RenderedTab Render() {
        m_Tab.m_Level = static_cast<RhythmLevel>(Below(3));
        m_MainRhythm = static_cast<Rhythm>(Below(3));
        m_StringCount = OneIn(4) ? 4 : 6;
        m_Signature = OneIn(4) ? Signature() : Pick(kSignatures);
        m_BarTicks = m_Signature.m_BarTicks;
        m_LineEnd = OneIn(2) ? "\r\n" : "\n";
        const int firstBarCount = 1 + Below(4);
        m_BarsUntilSignature = m_Signature.m_Text.empty() ? kNever : Below(firstBarCount);
        PrintHeader();
        AddStave(firstBarCount);
        std::string head = m_StringCount == 4 ? "Bass Guitar, 33, tuned" : "Guitar, 25, tuned";
        for (std::size_t i = m_Strings.size(); i-- > 0;) {
            head += Cat(' ', 2 * m_Tuning.m_Pitches[i]);
        }
        while (!OneIn(3)) {
            AddStave(1 + Below(4));
        }
        PrintLine("Chorus in C, 2/4");
        head += m_AreRhythmsShown ? ", rhythms shown" : "";
        m_Tab.m_Score.insert(m_Tab.m_Score.begin(), head);
        return std::move(m_Tab);
    }

private:
    static constexpr int kNever = 1000;

    // The standard distributions differ from library to library.
    int Below(int end) { return static_cast<int>(m_Engine() % static_cast<unsigned>(end)); }
    bool OneIn(int count) { return Below(count) == 0; }
    template <typename T, std::size_t N>
    const T& Pick(const T (&list)[N]) {
        return list[Below(static_cast<int>(N))];
    }

    // Prose that holds nothing for the score, save for a time signature that is the only one.
    void PrintHeader() {
        PrintLine("A TUNE\tfor strings, page 4/16 of 1/1\nAn introduction - with figures - ");
        if (m_BarsUntilSignature != kNever && OneIn(3)) {
            PrintLine(Cat("Time:\t", m_Signature.m_Text));
            m_BarsUntilSignature = kNever;
        }
        PrintLine("\n -h- hammer on\n -p- pull off\n --- rest\n\n");
    }

    void PrintLine(std::string line) {
        if (line.starts_with("        ") && OneIn(2)) {
            line.replace(0, 8, "\t");
        }
        m_Tab.m_Bytes += line + m_LineEnd;
    }

    void AddStave(int barCount) {
        const bool isNamed = !OneIn(4);
        const int tuning = isNamed ? Below(2) : 0;
        m_Tuning = m_StringCount == 4 ? kBassTunings[tuning] : kGuitarTunings[tuning];
        m_Strings.assign(static_cast<std::size_t>(m_StringCount), {});
        for (std::size_t i = 0; isNamed && i < m_Strings.size(); ++i) {
            m_Strings[i] = m_Tuning.m_Names[i];
        }
        constexpr std::string_view kBarLines[] = {"|", "||", "|:", "||:", " "};
        std::string_view barLine = isNamed || OneIn(2) ? Pick(kBarLines) : "";
        for (int i = 0; i < barCount; ++i) {
            ExtendStrings(barLine);
            AddBar();
            barLine = Pick(kBarLines);
        }
        ExtendStrings(OneIn(4) ? "" : "|");
        PrintStave();
    }

    void ExtendStrings(std::string_view columns) {
        for (std::string& string : m_Strings) {
            string += columns;
        }
    }

    void PrintStave() {
        if (!m_LabelLine.empty()) {
            PrintLine("Outro: only the line of labels next to the stave counts");
        }
        // The two lines next to the stave are searched for chords and rhythms.
        const bool isRhythmAbove = OneIn(2);
        const bool hasDashes = GetLength(m_Strings.front()) > 20 && OneIn(3);
        const std::string other = isRhythmAbove ? m_RhythmLine : hasDashes ? "- slow -" : "";
        std::vector<std::string> lines = {m_ChordLine, other};
        if (OneIn(2)) {
            lines.front().swap(lines.back());
        }
        lines.insert(lines.begin(), {m_SignatureLine, m_LabelLine});
        lines.insert(lines.end(), m_Strings.rbegin(), m_Strings.rend());
        lines.push_back(OneIn(3) ? "la la la la la la la la la la la la la la la la la la" : "");
        lines.insert(lines.end(), {isRhythmAbove ? "" : m_RhythmLine, "", ""});
        for (const std::string& line : lines) {
            PrintLine(line);
        }
        m_SignatureLine = m_LabelLine = m_ChordLine = m_RhythmLine = "";
    }

    void AddBar() {
        PrintSignature();
        const Rhythm rhythm = OneIn(8) ? static_cast<Rhythm>(Below(3)) : m_MainRhythm;
        Cells cells = rhythm == Rhythm::Letters  ? DrawLetters()
                      : rhythm == Rhythm::Counts ? DrawCounts()
                                                 : DrawGrid();
        const int lead = rhythm == Rhythm::None ? Below(3) : 1 + Below(2);
        int width = lead;
        for (const Cell& cell : cells) {
            width += cell.m_Width;
        }
        const std::string_view label = PrintLabel(width);
        int column = GetLength(m_Strings.front()) + lead;
        ExtendStrings(std::string(static_cast<std::size_t>(width), '-'));
        // Without a rhythm line the music starts with the first note.
        bool mustSound = rhythm == Rhythm::None;
        const bool isSilent = OneIn(12);
        const bool isAlignedRight = lead > 0 && OneIn(2);
        const int density = 2 + Below(6);
        for (Cell& cell : cells) {
            if (!isSilent && (mustSound || !OneIn(4))) {
                Strike(cell, column, density, isAlignedRight && cell.m_Width > 3);
                mustSound = false;
            }
            // A letter may stand one column to the right of its note.
            const int shift = rhythm == Rhythm::Letters ? Below(2) : 0;
            Put(m_RhythmLine, column + shift, cell.m_Mark);
            column += cell.m_Width;
        }
        ListBar(cells, rhythm, label);
    }

    // The first signature holds for the bars before it too, and for the length of all bars.
    void PrintSignature() {
        const int bars = m_BarsUntilSignature--;
        if (bars > 0 || (bars < 0 && !OneIn(5))) {
            return;
        }
        m_Signature = bars < 0 ? Pick(kSignatures) : m_Signature;
        // The slash may stand a little to the left of the bar.
        const int bar = GetLength(m_Strings.front());
        const int slash = bar > 2 && OneIn(2) ? bar - 1 : bar + 1;
        const int start = slash - static_cast<int>(m_Signature.m_Text.find('/'));
        Put(m_SignatureLine, std::max(start, 0), m_Signature.m_Text);
    }

    // Returns the label, or nothing when none stands over the bar.
    std::string_view PrintLabel(int barWidth) {
        const std::string_view label = kLabels[m_LabelCount % 4];
        const int room = barWidth - GetLength(label) - 3;
        if (room < 0 || !OneIn(4)) {
            return {};
        }
        ++m_LabelCount;
        Put(m_LabelLine, GetLength(m_Strings.front()) + Below(room + 1), label);
        return label;
    }

    Cells DrawLetters() {
        Cells cells;
        // Less than a half note, the dots apart, is not taken for a rhythm.
        for (int worth = 0; worth < 512 || !OneIn(3);) {
            const int exponent = Below(6);
            const int length = 1024 >> exponent;
            const int dots = Below(std::min(6 - exponent, 3));
            const std::string mark = Cat("WHQEST"[exponent], Repeat(".", dots));
            cells.push_back({2 * length - (length >> dots), 4 + dots + Below(3), mark});
            worth += length;
        }
        return cells;
    }

    Cells DrawCounts() {
        Cells cells;
        const int parts = 1 << Below(3);
        const int count = parts * (4 + Below(3));
        const int width = 2 + Below(3);
        const bool areAllMarked = OneIn(2);
        for (int i = 0; i < count; ++i) {
            const char* const mark = i % parts * 2 == parts ? "+" : "e";
            cells.push_back({m_Signature.m_BeatTicks / parts, width, areAllMarked ? mark : ""});
            if (i % parts == 0) {
                cells.back().m_Mark = Cat(i / parts + 1);
            }
        }
        return cells;
    }

    // The spacing tells the rhythm, if what whole columns leave over of the bar stays below half of
    // the smallest step.
    Cells DrawGrid() {
        const int length = 64 << Below(2);
        const int count = m_BarTicks / length;
        int width = 2 + Below(3);
        while (m_BarTicks % (count * width) >= 32) {
            width = 2 + Below(3);
        }
        return Cells(static_cast<std::size_t>(count), {length, width, ""});
    }

    // Draws, prints and lists what is played in a cell. Aligned right, frets of two digits start
    // one column early beside shorter ones.
    void Strike(Cell& cell, int column, int density, bool isAlignedRight) {
        constexpr int kMuted = -1;
        std::map<int, int> frets;  // by string
        const int surely = Below(m_StringCount);
        bool hasShort = false;
        for (int string = 0; string < m_StringCount; ++string) {
            if (string == surely || OneIn(density)) {
                frets[string] = OneIn(12) ? kMuted : Below(cell.m_Width == 2 ? 10 : 23);
                hasShort |= frets[string] < 10;
            }
        }
        std::multimap<int, std::string> notes;  // by step
        for (const auto& [string, fret] : frets) {
            const auto index = static_cast<std::size_t>(string);
            std::string text = fret == kMuted ? "x" : Cat(fret);
            const int start = isAlignedRight && hasShort && fret >= 10 ? column - 1 : column;
            if (start + GetLength(text) + 2 <= column + cell.m_Width && OneIn(8)) {
                text += "hp/~"[Below(4)];
            }
            m_Strings[index].replace(static_cast<std::size_t>(start), text.size(), text);
            if (fret != kMuted) {
                const int pitch = m_Tuning.m_Pitches[index] + fret;
                const char name = "CCDEEFFGGABB"[pitch % 12];
                const auto step = static_cast<int>(std::string_view("CDEFGAB").find(name));
                const int diat = pitch / 12 * 7 + step;
                notes.emplace(diat, Cat(string, '/', 2 * pitch, '/', diat));
            }
        }
        cell.m_IsStruck = true;
        cell.m_Notes = Join(notes, [](const auto& note) { return note.second; });
        const std::string_view chord = Pick(kChordNames);
        if (GetLength(chord) < cell.m_Width && OneIn(2)) {
            Put(m_ChordLine, column, chord);
            cell.m_Chord = Cat(" (", chord, ')');
        }
    }

    void ListBar(const Cells& cells, Rhythm rhythm, std::string_view label) {
        const bool isIndicated = rhythm != Rhythm::None && m_Tab.m_Level != RhythmLevel::Never;
        const bool isShown = isIndicated || m_Tab.m_Level == RhythmLevel::Always;
        m_AreRhythmsShown |= isShown;
        Cells durations;
        for (const Cell& cell : cells) {
            const int plainTicks = cell.m_IsStruck ? 128 : 0;
            const int ticks = isShown ? cell.m_Ticks : plainTicks;
            // Only letters tell where a note ends before the next one.
            if (!cell.m_IsStruck && !durations.empty() &&
                (rhythm != Rhythm::Letters || !durations.back().m_IsStruck)) {
                durations.back().m_Ticks += ticks;
            } else if (ticks > 0) {
                durations.push_back(cell);
                durations.back().m_Ticks = ticks;
            }
        }
        std::string items;
        int length = 0;
        for (const Cell& duration : durations) {
            items += ListDuration(length, duration);
            length += duration.m_Ticks;
        }
        if (length > 0) {
            const bool hasChords = items.find('(') != std::string::npos;
            m_Tab.m_Score.push_back(ListBarHead(length, label, hasChords) + ':' + items);
        }
    }

    std::string ListBarHead(int length, std::string_view label, bool hasChords) {
        std::string line = Cat("7/", length);
        if (!label.empty()) {
            line += Cat(" gap 400 \"", label, "\" at ", hasChords ? 128 : 32);
            if (!m_Tab.m_Score.empty()) {
                m_Tab.m_Score.back()[0] = '6';
            }
        } else if (hasChords) {
            line += " gap 256";
        }
        if (m_Signature.m_Text != m_ListedSignature) {
            m_ListedSignature = m_Signature.m_Text;
            line += Cat(' ', m_ListedSignature);
        }
        return line;
    }

    static std::string ListDuration(int start, const Cell& duration) {
        std::string items;
        std::string chord = duration.m_Chord;
        int rest = duration.m_Ticks;
        for (int exponent = 20; exponent >= 0; --exponent) {
            const int slice = 1 << exponent;
            if (rest >= slice) {
                rest -= slice;
                const bool isTied = rest > 0 && !duration.m_Notes.empty();
                items += Cat(' ', start, '/', exponent, '[', duration.m_Notes, isTied ? "]~" : "]",
                             std::exchange(chord, ""));
                start += slice;
            }
        }
        return items;
    }

    std::mt19937 m_Engine;
    RenderedTab m_Tab{};
    const char* m_LineEnd = "\n";
    Rhythm m_MainRhythm = Rhythm::None;
    int m_StringCount = 6;
    Signature m_Signature;
    int m_BarTicks = 0;            // of the first signature
    int m_BarsUntilSignature = 0;  // up to the first one over a bar, then negative
    std::string_view m_ListedSignature;
    int m_LabelCount = 0;
    bool m_AreRhythmsShown = false;
    // The stave at hand: its strings from the bottom up, and what stands above or below.
    Tuning m_Tuning{};
    std::vector<std::string> m_Strings;
    std::string m_SignatureLine, m_LabelLine, m_ChordLine, m_RhythmLine;
};

}  // namespace

RenderedTab RenderTab(unsigned seed) {
    return Renderer(seed).Render();
}

}  // namespace tabulorix
