#pragma once
// Mutated requests against the host sockets. An echo host (echo_host.h)
// and the script server listen in a fresh runtime directory. Each request
// starts from a well-formed one, a command for the host or the fields of
// a script for the server, takes random mutations (bytes changed, cut
// short, lengthened, its length word changed), and goes on a connection
// of its own, which must end in replies or a close within seconds. Every
// 50 requests a command on a connection that stays open must still be
// answered. Returns the number of failures, each told on stderr.
long RunSocketFuzz(long requests, unsigned seed);
