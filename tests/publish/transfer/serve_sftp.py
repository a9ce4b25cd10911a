"""Serves a folder by SFTP: serve_sftp.py FOLDER PORT KEY

The password is "secret". The user "asked" is asked for it as a question, "keyed" may come with a key only. Some of the
folder's folders are trouble: "full" takes 100,000 bytes of a file, "cut" ends the connection there (once), "mute" does
not answer, "locked" takes no new files.
"""

import asyncio
import os
import sys
import warnings

warnings.simplefilter("ignore")
import asyncssh

ROOM = 100_000
folder, port, key = sys.argv[1], int(sys.argv[2]), sys.argv[3]
cut = set()


class Login(asyncssh.SSHServer):
    def connection_made(self, connection):
        self.user = ""

    def begin_auth(self, username):
        self.user = username
        return True

    def password_auth_supported(self):
        return self.user not in ("asked", "keyed")

    def validate_password(self, username, password):
        return password == "secret"

    def kbdint_auth_supported(self):
        return self.user == "asked"

    def public_key_auth_supported(self):
        return True

    def get_kbdint_challenge(self, username, lang, submethods):
        return "", "", "", [("Password: ", False)]

    def validate_kbdint_response(self, username, responses):
        return responses == ["secret"]


class Files(asyncssh.SFTPServer):
    def __init__(self, channel):
        super().__init__(channel, chroot=folder)

    def open(self, path, pflags, attrs):
        local = self.map_path(path)
        if os.path.dirname(local).endswith(b"/locked") and pflags & asyncssh.FXF_CREAT and not os.path.exists(local):
            raise asyncssh.SFTPPermissionDenied("locked")
        return super().open(path, pflags, attrs)

    async def write(self, file_obj, offset, data):
        trouble = file_obj.name.split(b"/")[-2]
        if trouble == b"mute":
            await asyncio.sleep(3600)
        if offset + len(data) > ROOM:
            if trouble == b"full":
                raise asyncssh.SFTPFailure("no room")
            if trouble == b"cut" and file_obj.name not in cut:
                cut.add(file_obj.name)
                self.channel.get_connection().abort()
        return super().write(file_obj, offset, data)


async def serve():
    await asyncssh.listen("127.0.0.1", port, server_factory=Login, server_host_keys=[key], sftp_factory=Files,
                          sftp_version=3)
    await asyncio.Event().wait()


asyncio.run(serve())
