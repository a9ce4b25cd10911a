#!/bin/sh
# Desktops offer to start this when the disc goes in; they name it with its folder.
exec "${0%/*}/multimedia.exe"
