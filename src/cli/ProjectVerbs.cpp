#include <algorithm>
#include <cstdio>

#include <QFile>
#include <QFileInfo>

#include "base/AtomicFile.h"
#include "cli/Terminal.h"
#include "cli/Verbs.h"
#include "media/loaded_movies/LoadedMovies.h"
#include "record_editor/BundleFiles.h"
#include "record_editor/PointerTrack.h"
#include "record_editor/RecordPauseMarks.h"
#include "record_editor/RecordProjectBundle.h"
#include "record_editor/RecordedKeyCue.h"
#include "record_editor/TrimSyncFile.h"
#include "recording/ProjectWaveform.h"
#include "recording/RecordingMarker.h"
#include "recording/sound/WaveformFile.h"

namespace vellora::cli {
namespace {

std::optional<RecordProjectBundle> bundleIn(const Invocation& invocation) {
  const QString path = QFile::decodeName(invocation.arguments[0].c_str());
  const auto bundle = RecordProjectBundle::open(path);
  if (bundle) return *bundle;
  printError(bundle.error() == RecordProjectBundle::OpenError::NoFootage
                 ? QStringLiteral("%1 has no movie in it").arg(path)
                 : QStringLiteral("%1 is not a recording project: that is a folder whose name ends in .%2")
                       .arg(path, RecordingFiles::projectExtension));
  return std::nullopt;
}

std::filesystem::path pathOf(const QString& file) {
  return QFile::encodeName(file).toStdString();
}

/// What a movie of the project holds; an object with "error" when it cannot be read.
Json describeMovie(const QString& file) {
  Json movie{{"file", QFileInfo(file).fileName().toStdString()}, {"bytes", QFileInfo(file).size()}};
  LoadedMovies movies;
  const auto summary = movies.summarize(pathOf(file));
  if (!summary) {
    movie["error"] = summary.error().message;
    return movie;
  }
  movie["duration"] = summary->duration;
  if (summary->video) {
    movie["codec"] = summary->video->codec;
    movie["width"] = summary->video->width;
    movie["height"] = summary->video->height;
    movie["frameRate"] = summary->video->frameRate;
  }
  movie["audio"] = Json::array();
  for (const MovieSummary::Audio& track : summary->audio) {
    movie["audio"].push_back({{"codec", track.codec}, {"sampleRate", track.sampleRate}, {"channels", track.channels}});
  }
  return movie;
}

struct EditState {
  RecordProjectState state;
  const char* condition = "new";  ///< "new" before the first edit, "read", "partly read", "unreadable"
};

/// The state document as it is; unlike opening the project, this leaves a damaged one where it lies.
EditState readState(const RecordProjectBundle& bundle) {
  EditState edit;
  edit.state.name = bundle.directoryName();
  const auto text = AtomicFile::read(bundle.file(bundleFiles::project), bundleFiles::largestDocument);
  if (!text) {
    if (text.error().kind != FileError::Kind::NotFound) edit.condition = "unreadable";
    return edit;
  }
  if (auto decoded = RecordProjectState::decode(*text)) {
    edit.condition = decoded->skipped == 0 ? "read" : "partly read";
    edit.state = std::move(decoded->state);
  } else {
    edit.condition = "unreadable";
  }
  return edit;
}

/// What is cut: "cuts.txt" where it is there, as the newest word on it.
TrimSyncFile::Content trimsOf(const RecordProjectBundle& bundle, const RecordProjectState& state) {
  const auto text = AtomicFile::read(bundle.file(bundleFiles::cuts), bundleFiles::largestDocument);
  return text ? TrimSyncFile::parse(*text, state.trims) : TrimSyncFile::Content{state.trims, {}};
}

Json describeTrims(const std::vector<TrimElement>& trims) {
  Json list = Json::array();
  for (const TrimElement& trim : trims) {
    Json entry{{"start", trim.start}, {"end", trim.end}};
    if (trim.note) entry["note"] = trim.note->toStdString();
    list.push_back(std::move(entry));
  }
  return list;
}

Json describe(const RecordProjectBundle& bundle) {
  const EditState edit = readState(bundle);
  const RecordProjectState& state = edit.state;
  const auto trims = trimsOf(bundle, state);
  const auto pointer = PointerTrack::load(bundle.path());
  const auto clicks =
      std::ranges::count_if(pointer, [](const PointerEntry& entry) { return entry.button && entry.button->isDown; });
  Json info{{"bundle", bundle.path().toStdString()},
            {"name", state.name.toStdString()},
            {"isUnfinished", RecordingMarker::isPresent(bundle.path())},
            {"screen", describeMovie(bundle.videoURL())},
            {"camera", bundle.cameraURL().isEmpty() ? Json() : describeMovie(bundle.cameraURL())},
            {"pauses", RecordPauseMarks::load(bundle.path())},
            {"keyCues", RecordedKeyCue::load(bundle.path()).size()},
            {"pointer", {{"entries", pointer.size()}, {"clicks", clicks}}},
            {"project", edit.condition},
            {"trims", describeTrims(trims.trims)},
            {"unreadLinesOfCuts", trims.skippedLines},
            {"videoCuts", state.videoCuts},
            {"zooms", state.zooms.size()},
            {"speeds", state.speeds.size()},
            {"masks", state.masks.size()},
            {"layouts", state.layouts.size()},
            {"textCards", state.textCards.size()},
            {"captions", state.captions.size()}};
  const Json report = bundleFiles::readDocument(bundle.file(bundleFiles::report));
  info["report"] = report.is_object() ? report : Json();
  return info;
}

QString secondsText(const Json& seconds) {
  return QStringLiteral("%1 s").arg(seconds.get<double>(), 0, 'f', 2);
}

QString movieLine(const Json& movie) {
  const QString file = QString::fromStdString(movie["file"].get<std::string>());
  if (movie.contains("error")) return file + QStringLiteral("\tcannot be read");
  QStringList parts{file, secondsText(movie["duration"])};
  if (movie.contains("codec")) {
    parts << QStringLiteral("%1 %2 × %3, %4 frames a second")
                 .arg(QString::fromStdString(movie["codec"].get<std::string>()))
                 .arg(movie["width"].get<int>())
                 .arg(movie["height"].get<int>())
                 .arg(movie["frameRate"].get<double>(), 0, 'f', 2);
  }
  const std::size_t tracks = movie["audio"].size();
  if (tracks > 0)
    parts << QStringLiteral("%1 %2").arg(tracks).arg(QLatin1StringView(tracks == 1 ? "audio track" : "audio tracks"));
  return parts.join(u'\t');
}

void printForPeople(const Json& info) {
  const auto line = [](const char* label, QString text) {
    for (QChar& letter : text) {
      if (letter != u'\t' && letter.category() == QChar::Other_Control) letter = u' ';
    }
    printLine(QLatin1StringView(label) + u'\t' + text);
  };
  line("name", QString::fromStdString(info["name"].get<std::string>()));
  if (info["isUnfinished"].get<bool>()) line("state", QStringLiteral("being recorded, or interrupted"));
  line("screen", movieLine(info["screen"]));
  if (!info["camera"].is_null()) line("camera", movieLine(info["camera"]));
  line("edits", QString::fromStdString(info["project"].get<std::string>()));
  line("pauses", QString::number(info["pauses"].size()));
  line("clicks", QString::number(info["pointer"]["clicks"].get<qint64>()));
  for (const Json& trim : info["trims"]) {
    QString text = secondsText(trim["start"]) + QStringLiteral(" – ") + secondsText(trim["end"]);
    if (trim.contains("note")) text += u'\t' + QString::fromStdString(trim["note"].get<std::string>());
    line("cut", text);
  }
  for (const Json& number : info["unreadLinesOfCuts"]) {
    line("not read", QStringLiteral("line %1 of %2").arg(number.get<int>()).arg(bundleFiles::cuts));
  }
  for (const char* counted : {"keyCues", "zooms", "speeds", "masks", "layouts", "textCards", "captions"}) {
    if (const auto count = info[counted].get<std::size_t>(); count > 0) line(counted, QString::number(count));
  }
}

}  // namespace

int showProject(const Invocation& invocation) {
  const auto bundle = bundleIn(invocation);
  if (!bundle) return Failed;
  const Json info = describe(*bundle);
  if (invocation.json) {
    printJson(info);
  } else {
    printForPeople(info);
  }
  return Done;
}

int showWaveform(const Invocation& invocation) {
  const auto bundle = bundleIn(invocation);
  if (!bundle) return Failed;
  LoadedMovies movies;
  const auto envelope = projectWaveform::load(movies, *bundle);
  if (envelope.linearLevels.empty()) {
    printError(QStringLiteral("there is no sound in it that can be read"));
    return Failed;
  }
  const QByteArray text = WaveformFile::serialize(envelope.linearLevels, AudioWaveform::samplesPerSecond);
  std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
  return Done;
}

}  // namespace vellora::cli
