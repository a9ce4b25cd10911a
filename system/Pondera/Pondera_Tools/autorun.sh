#!/bin/sh
# Desktops offer to start this when the disc goes in.
exec "$(dirname "$0")/multimedia.exe"
