# A Unix socket ping-pong between two processes, framed as the host
# sockets are: the kernel's floor for one request and its reply.
#   socket_ping_pong.py COUNT [WINDOW]: with a WINDOW, that many requests
#   go out in one write before their replies are read, as a pipelining
#   client sends them; the echo side answers what one read brings in one
#   write.
import os, socket, struct, sys, time

count = int(sys.argv[1])
window = int(sys.argv[2]) if len(sys.argv) > 2 else 1
request = struct.pack(">I", 3) + b"1+2"
reply = struct.pack(">iII", 0, 1, 0) + b"3"
parent, child = socket.socketpair()
if os.fork() == 0:
    parent.close()
    pending = b""
    while True:
        got = child.recv(65536)
        if not got:
            os._exit(0)
        pending += got
        whole = len(pending) // len(request)
        pending = pending[whole * len(request):]
        child.sendall(reply * whole)
child.close()
start = time.perf_counter()
done = 0
while done < count:
    batch = min(window, count - done)
    parent.sendall(request * batch)
    want = batch * len(reply)
    got = 0
    while got < want:
        got += len(parent.recv(want - got))
    done += batch
took = time.perf_counter() - start
parent.close()
os.wait()
print(round(count / took))
