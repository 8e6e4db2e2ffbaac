"""An FTP server on a free port of this machine: ftp_server.py FOLDER FAULT.

FAULT is "none"; "tls" (nothing without encryption; the certificate is written beside FOLDER, as FOLDER.pem);
"short" (keeps half of each file); "sizeless" (does not know SIZE); or "stall CODE" and "die CODE", at the reply
with that code, or with "data" at the first bytes of a file. Says its port when it listens, and "stalled".
"""
import logging
import os
import sys
import time

from OpenSSL import crypto
from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import DTPHandler, FTPHandler, TLS_DTPHandler, TLS_FTPHandler
from pyftpdlib.servers import FTPServer

folder, fault, where = (sys.argv[1:] + [""])[:3]


def happen(at):
    if at != where:
        return
    if fault == "die":
        os._exit(1)
    print("stalled", flush=True)
    time.sleep(600)


class Data(DTPHandler):
    def handle_read(self):
        super().handle_read()
        happen("data")

    handle_read_event = handle_read


class Faulty(FTPHandler):
    dtp_handler = Data
    if fault == "sizeless":
        proto_cmds = {name: value for name, value in FTPHandler.proto_cmds.items() if name != "SIZE"}

    def respond(self, reply, **options):
        happen(reply[:3])
        super().respond(reply, **options)

    def on_file_received(self, file):
        if fault == "short":
            os.truncate(file, os.path.getsize(file) // 2)


class SecureData(TLS_DTPHandler):
    def readable(self):
        """A client may shake hands before it asks for a transfer; the library's 1.5.7 hangs up on it."""
        return self._ssl_accepting or super().readable()


def write_certificate(path):
    key = crypto.PKey()
    key.generate_key(crypto.TYPE_RSA, 2048)
    certificate = crypto.X509()
    certificate.set_version(2)
    certificate.get_subject().CN = "localhost"
    certificate.set_issuer(certificate.get_subject())
    certificate.add_extensions([crypto.X509Extension(b"subjectAltName", False, b"DNS:localhost")])
    certificate.gmtime_adj_notBefore(-3600)
    certificate.gmtime_adj_notAfter(3600)
    certificate.set_pubkey(key)
    certificate.sign(key, "sha256")
    with open(path, "wb") as file:
        file.write(crypto.dump_certificate(crypto.FILETYPE_PEM, certificate))
        file.write(crypto.dump_privatekey(crypto.FILETYPE_PEM, key))


handler = Faulty
if fault == "tls":
    handler = TLS_FTPHandler
    handler.dtp_handler = SecureData
    handler.certfile = folder.rstrip("/") + ".pem"
    handler.tls_control_required = handler.tls_data_required = True
    write_certificate(handler.certfile)
handler.authorizer = DummyAuthorizer()
handler.authorizer.add_user("agent", 'se|cr"et', folder, perm="elradfmwMT")
handler.authorizer.add_user("guest", "guest", folder, perm="elr")
logging.disable()
server = FTPServer(("127.0.0.1", 0), handler)
print(server.address[1], flush=True)
server.serve_forever()
