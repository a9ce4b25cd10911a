#!/bin/sh
# Desktops offer to start this when the disc goes in; they name it with its folder, a terminal may not.
case "$0" in
  */*) exec "${0%/*}/multimedia.exe" ;;
esac
exec ./multimedia.exe
