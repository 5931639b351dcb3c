# A Unix socket ping-pong between two processes, framed as the host
# sockets are: the kernel's floor for one request and its reply.
import os, socket, struct, sys, time

count = int(sys.argv[1])
parent, child = socket.socketpair()
if os.fork() == 0:
    parent.close()
    while True:
        head = child.recv(4)
        if not head:
            os._exit(0)
        body = child.recv(struct.unpack(">I", head)[0])
        child.sendall(struct.pack(">iI", 0, 1) + b"3")
child.close()
start = time.perf_counter()
for _ in range(count):
    parent.sendall(struct.pack(">I", 3) + b"1+2")
    parent.recv(9)
took = time.perf_counter() - start
parent.close()
os.wait()
print(round(count / took))
