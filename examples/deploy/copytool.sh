#!/bin/sh
# Stands in for robocopy: shows what it is called with and copies the first folder into the second. It takes no
# file away and knows no switch.
printf 'copytool:'
printf ' [%s]' "$@"
printf '\n'
# Robocopy's codes: 1 means that files were copied, 8 and more that something failed.
mkdir -p "$2" && cp -R "$1/." "$2" || exit 8
exit 1
