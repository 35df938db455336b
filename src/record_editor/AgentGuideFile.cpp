#include "record_editor/AgentGuideFile.h"

#include <QFile>
#include <QFileInfo>

#include "record_editor/BundleFiles.h"

namespace vellora {
namespace {

const char guide[] = R"(# Editing this recording

This folder is a Vellora recording project. You can edit it with any program that reads and writes text; Vellora follows
what you change while the project is open, and reads it when it is opened next.

## The files

All but the footage may be missing. `captions.srt` and `cuts.txt` are yours to create; where they lie here they are what
counts, and `project.json` is not asked for cuts and captions.

| file | what it is | you may |
|---|---|---|
| `screen.mov` (or `screen.` with another ending) | the footage: the screen, and the microphone as its first sound track | read |
| `camera.mov` | the camera, on the same time line; missing when no camera was used | read |
| `captions.srt` | the captions, SubRip text | read and write |
| `cuts.txt` | what is cut out of the footage | read and write |
| `waveform.json` | how loud the recording is, 50 times a second; `vellora project waveform .` makes it | read |
| `project.json` | everything else the editor knows | read |
| `keyboard.json`, `pauses.json`, `pointer.jsonl` | keys pressed, pauses made, where the pointer was | read |

Never change, move or replace the footage. Every edit is a line of text that can be taken back. `vellora project info .`
tells the footage's length, the cuts as they are understood, and each line of `cuts.txt` that is not: run it after an
edit.

## Times

Every time in every file is in seconds of the footage as it was recorded, before anything is cut or sped up. Cutting
does not move the times of what comes later. In `captions.srt` and `cuts.txt` times are written `HH:MM:SS,mmm`.

## Cutting: cuts.txt

One cut a line, sorted by time, with a reason after it if you like:

    # lines like this one are ignored
    00:00:12,340 --> 00:00:15,020  said twice
    00:01:03,500 --> 00:01:04,100

To take a cut back, delete its line; an empty file means no cuts. Cuts may overlap. To cut everything from a moment on,
use the end of the footage as the end, or any time after it.

## Captions: captions.srt

Plain SubRip: a number, the time range, one or more lines of text, an empty line. `transcriptWords` in `project.json`
tells when each word is said: `{"text", "start", "end"}`.

## Rules that make a good cut

1. A cut begins and ends in silence. `waveform.json` lists silences as `{"start", "end"}`: spans of at least 0.15 s
   whose level stays at or below 18 % of the loudest moment. `peaks` has one level from 0 to 1 for every 0.02 s
   (`samplesPerSecond` is 50), for finer work.
2. Move an edge into the nearest silence rather than to the nearest word.
3. Every word you delete from the captions because it is not to be heard needs a cut at its time; deleting the text alone
   leaves the sound. The other way around, a cut needs its words gone from the captions.
4. Cut a phrase that was said twice as a whole, the first one as a rule. Never join the beginning of one attempt to the
   end of another.
5. Leave a breath: at least 0.1 s of silence at each side of what stays, and in all as long a pause as the speaker makes
   elsewhere. At the very beginning and end half a second is enough.
6. Do not cut within 0.05 s of a change of the picture that matters; look at the frame if you can.

## If something goes wrong

Lines that cannot be read are skipped, the others count. Delete `captions.srt` or `cuts.txt` to go back to what the
project held before. This guide is yours to change; it is never written over.
)";

}  // namespace

Result<void, FileError> AgentGuideFile::ensure(const QString& bundleURL) {
  const QString path = bundleURL + u'/' + bundleFiles::guide;
  const QFileInfo info(path);
  if (info.exists() || info.isSymLink()) return {};
  return AtomicFile::write(path, QByteArray(guide));
}

}  // namespace vellora
