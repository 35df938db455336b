#include "cli/CommandTable.h"

namespace vellora::cli {
namespace {

std::vector<OptionDescription> withCaptureOptions(std::vector<OptionDescription> own) {
  const std::vector<OptionDescription> shared{
      {"--delay", "S", "wait S seconds first"},
      {"--save", "", "save to the folder of automatic saves"},
      {"--copy", "", "put the picture on the clipboard"},
      {"--edit", "", "open the picture in the editor"},
      {"--pin", "", "keep the picture above all other windows"},
      {"--output", "FILE", "write the picture to FILE (PNG), replacing it", ValueHint::File},
  };
  own.insert(own.end(), shared.begin(), shared.end());
  return own;
}

VerbDescription captureVerb() {
  VerbDescription verb;
  verb.name = "capture";
  verb.summary = "take a picture of the screen";
  verb.description =
      "Without --save, --copy, --edit, --pin or --output the picture goes through the after-capture actions chosen in "
      "the settings. With --output alone it is only written to that file and does not enter the history. Positions and "
      "sizes are "
      "device pixels of the whole desktop, as the displays and windows verbs print them.";
  verb.standsAlone = false;
  verb.verbs = {
      {"fullscreen",
       "one display, by default the one under the pointer",
       "",
       {},
       withCaptureOptions({{"--display", "ID", "the display with this id or name"}})},
      {"area",
       "a rectangle, dragged on the screen unless --region names one",
       "",
       {},
       withCaptureOptions({{"--region", "X,Y,W,H", "this rectangle of the desktop, in device pixels"}})},
      {"window",
       "one window without what covers it, picked on the screen unless --window names one",
       "",
       {},
       withCaptureOptions({{"--window", "ID", "the window with this id"}})},
  };
  return verb;
}

const OptionDescription& pictureOutput() {
  static const OptionDescription option{
      "--output",      "FILE", "write the picture to FILE, replacing it: .png, .jpg, .webp, .tiff or .pdf",
      ValueHint::File, {},     true};
  return option;
}

VerbDescription editVerb() {
  VerbDescription verb;
  verb.name = "edit";
  verb.summary = "open pictures and recording projects";
  verb.arguments = {{"FILE", "a picture, or the folder of a recording project", true, {}, true, ValueHint::File}};
  return verb;
}

VerbDescription renderVerb() {
  VerbDescription verb;
  verb.name = "render";
  verb.summary = "make a picture of a session, annotations and backdrop included";
  verb.description =
      "Needs no display. What redactions cover and crops leave out is in no way part of the picture; its file carries "
      "no metadata.";
  verb.arguments = {{"SESSION", "the folder of a session, or its session.json", true, {}, false, ValueHint::File}};
  verb.options = {pictureOutput(), {"--scale", "N", "pixels per point, by default those of the sharpest piece"}};
  return verb;
}

VerbDescription annotateVerb() {
  VerbDescription verb;
  verb.name = "annotate";
  verb.summary = "draw annotations and a backdrop onto a picture";
  verb.description =
      "Needs no display. The document is a session.json, of which the annotations and the backdrop are taken, or an "
      "object with the key \"annotations\" and, if wanted, \"backdrop\" in the same form.";
  verb.arguments = {{"IMAGE", "the picture", true, {}, false, ValueHint::File}};
  verb.options = {{"--document", "FILE", "what to draw, as JSON", ValueHint::File, {}, true},
                  pictureOutput(),
                  {"--scale", "N", "pixels per point, by default those of the picture"}};
  return verb;
}

VerbDescription compressVerb() {
  VerbDescription verb;
  verb.name = "compress";
  verb.summary = "make picture files smaller";
  verb.description =
      "Results stand beside their sources as NAME-compressed.EXT, or as NAME.EXT in --output-folder; nothing is ever "
      "replaced. A result is never larger than a source of the same type and size: its own bytes are kept then. Exif, "
      "XMP and places are left out unless --keep-metadata says otherwise. Animations and files of several pages keep "
      "their type and size, or are refused.";
  verb.arguments = {{"PATH", "a picture, or a folder of them", false, {}, true, ValueHint::File}};
  verb.options = {
      {"--recursive", "", "also the folders below a folder"},
      {"--format",
       "FORMAT",
       "the type to write, by default that of each source",
       ValueHint::None,
       {"original", "jpeg", "png", "webp"}},
      {"--quality", "N", "from 0 to 100, by default 75; for JPEG, WebP, HEIC, AVIF and JPEG XL"},
      {"--max-edge", "N", "reduce pictures whose longer edge has more than N pixels"},
      {"--output-folder", "DIR", "write there, and make the folder where it is missing", ValueHint::Folder},
      {"--keep-metadata", "", "keep Exif, XMP and places"},
      {"--keep-dates", "", "give results the dates of their sources"},
      {"--jobs", "N", "pictures at a time, by default one for each core"},
      {"--window", "", "open the window with the pictures instead, if there are any; its settings count then"},
  };
  return verb;
}

VerbDescription publishVerb() {
  VerbDescription verb;
  verb.name = "publish";
  verb.summary = "stream a video or audio file to an RTMP server";
  verb.description =
      "Streams as fast as the file plays. H.264, HEVC, AAC and Opus leave as they are, everything else is encoded "
      "again as H.264 and AAC. URL is rtmp://HOST[:PORT]/APPLICATION/STREAM, or rtmps:// for a secure connection, "
      "whose "
      "certificate is always checked. Ctrl-C ends the stream properly, a second one at once. Secrets need not stand on "
      "the command line: the password, then the stream name, are lines of standard input, which a terminal asks for.";
  verb.arguments = {{"FILE", "the file to stream", true, {}, false, ValueHint::File},
                    {"URL", "the server's address with the stream name at its end"}};
  verb.options = {
      {"--loop", "", "start again at the end, until stopped"},
      {"--ca-file", "FILE", "also trust servers these certificate authorities vouch for (PEM)", ValueHint::File},
      {"--user", "NAME", "log in with this name; the password is the first line of standard input"},
      {"--key-from-stdin", "", "URL has no stream name: it is the next line of standard input"},
      {"--as-fast-as-possible", "", "send as fast as the server takes it"},
  };
  return verb;
}

VerbDescription recordVerb() {
  VerbDescription verb;
  verb.name = "record";
  verb.summary = "record the screen into a project";
  verb.description =
      "Records until Ctrl-C, the end of --duration, or the end of what is recorded, then prints the project's folder. "
      "What was recorded survives a kill at any moment: the next start of Vellora makes a whole project of it. Devices "
      "are named as 'vellora devices' lists them; \"default\" takes the first one.";
  verb.options = {
      {"--region", "X,Y,W,H", "this part of the desktop, in device pixels"},
      {"--window", "ID", "this window, wherever it moves and whatever covers it"},
      {"--fullscreen", "", "a whole display"},
      {"--display", "NAME", "with --fullscreen: which one, by name or number"},
      {"--microphone", "ID", "with sound from this microphone"},
      {"--system-sound", "", "with the sound that the speakers play"},
      {"--camera", "ID", "with this camera, as a movie of its own"},
      {"--keystrokes", "", "with the keys that are pressed; never those typed into fields for passwords"},
      {"--duration", "S", "end after so many seconds"},
  };
  return verb;
}

VerbDescription projectVerb() {
  const ArgumentDescription bundle{"BUNDLE", "the project's folder", true, {}, false, ValueHint::Folder};
  VerbDescription verb;
  verb.name = "project";
  verb.summary = "what a recording project holds";
  verb.standsAlone = false;
  verb.verbs = {
      {"info", "print what was recorded and what has been edited", "Reads everything and changes nothing.", {bundle}},
      {"waveform",
       "print how loud the sound is over time, and where it is silent",
       "Prints the content of the project's waveform.json, which is written when it is missing.",
       {bundle}},
  };
  return verb;
}

VerbDescription historyVerb() {
  VerbDescription verb;
  verb.name = "history";
  verb.summary = "the ten last captures";
  verb.standsAlone = false;
  verb.verbs = {
      {"list", "list them, the newest first", ""},
      {"show", "print what one holds", "", {{"N", "its number in the list, by default 1, the newest", false}}},
      {"reopen", "open one again", "", {{"N", "its number in the list, by default 1, the newest", false}}},
      {"clear", "forget and delete all of them", ""},
  };
  return verb;
}

VerbDescription settingsVerb() {
  VerbDescription verb;
  verb.name = "settings";
  verb.summary = "show the settings window, or read and change single settings";
  verb.verbs = {
      {"list", "list every setting with its value", ""},
      {"get", "print one setting", "", {{"KEY", "the setting's name, as listed"}}},
      {"set", "change one setting", "", {{"KEY", "the setting's name, as listed"}, {"VALUE", "its new value"}}},
      {"reset", "return one setting to its default", "", {{"KEY", "the setting's name, as listed"}}},
  };
  return verb;
}

}  // namespace

const std::vector<VerbDescription>& commandTable() {
  static const std::vector<VerbDescription> table{
      captureVerb(),
      {"displays", "list the displays: id, position, size, scale, refresh rate", ""},
      {"windows", "list the windows that can be captured, the frontmost first", ""},
      historyVerb(),
      editVerb(),
      renderVerb(),
      annotateVerb(),
      compressVerb(),
      {"devices", "list the microphones and cameras",
       "One a line: what it is, the name options take, and the name people know. The first microphone is the default "
       "one."},
      recordVerb(),
      projectVerb(),
      publishVerb(),
      settingsVerb(),
      {"completion",
       "print the completion script of a shell",
       "",
       {{"SHELL", "bash, zsh or fish", true, {"bash", "zsh", "fish"}}}},
      {"manual", "print the manual page", ""},
  };
  return table;
}

const OptionDescription& jsonOption() {
  static const OptionDescription option{"--json", "", "print one JSON object on standard output"};
  return option;
}

}  // namespace vellora::cli
