#!/bin/sh
# make_files.sh FOLDER COUNT: a fresh folder with that many files. They are empty, so that what is measured
# is the deleting and not how the disk gives space back.
mkdir "$1" && cd "$1" && seq -f 'file%05.0f.txt' "$2" | xargs touch
