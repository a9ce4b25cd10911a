"""Serves a folder by FTP to anybody: serve.py FOLDER PORT [FOLDER OF cert.pem AND key.pem]"""

import logging
import os
import sys
import warnings

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler, TLS_FTPHandler
from pyftpdlib.servers import FTPServer

folder, port, keys = sys.argv[1], int(sys.argv[2]), sys.argv[3] if len(sys.argv) > 3 else ""
warnings.simplefilter("ignore")
logging.basicConfig(level=logging.WARNING)
handler = FTPHandler
if keys:
    handler = TLS_FTPHandler
    handler.certfile = os.path.join(keys, "cert.pem")
    handler.keyfile = os.path.join(keys, "key.pem")
handler.authorizer = DummyAuthorizer()
handler.authorizer.add_anonymous(folder, perm="elradfmwMT")
handler.authorizer.add_user("known", "secret", folder, perm="elradfmwMT")
FTPServer(("127.0.0.1", port), handler).serve_forever()
