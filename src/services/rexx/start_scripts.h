#pragma once
// The program's script service: the script server and the host sockets,
// started by the main process before the first text and stopped after the
// last.

// The "ARexx" menu starts and loads scripts from now on. A socket
// directory that is refused is reported; scripts inside the program still
// run.
void StartScripts();
// Halts the scripts still running and waits for them, then closes the
// sockets.
void StopScripts();
