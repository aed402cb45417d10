#!/bin/sh
# make_tree.sh FOLDER FOLDERS FILES BYTES: so many folders with so many files of that size in each.
mkdir "$1" && cd "$1" || exit
head -c "$4" /dev/urandom >.content
for folder in $(seq -f 'folder%04.0f' "$2"); do
  mkdir "$folder"
  if [ "$4" = 0 ]; then
    (cd "$folder" && seq -f 'file%05.0f.txt' "$3" | xargs touch)
  else
    seq -f "$folder/file%05.0f.txt" "$3" | xargs sh -c 'tee "$@" <.content >/dev/null' sh
  fi
done
rm .content
