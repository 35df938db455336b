#pragma once

namespace vellora {

/// The program behind `vellora publish`: streams a media file to an RTMP server. Its arguments come from `vellora`,
/// which has checked their form: "FILE URL [--loop] [--ca-file FILE] [--user NAME] [--key-from-stdin]
/// [--as-fast-as-possible] [--json]", FILE absolute. With --user the password is the first line of standard input; with
/// --key-from-stdin the next line is the stream name and URL is the server's address alone. The result is the exit
/// code.
int runPublish(int argc, char** argv);

}  // namespace vellora
