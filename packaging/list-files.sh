#!/bin/bash
# Prints the installer's two macros, every file by its name: what it unpacks, and what the uninstaller
# removes, so that nothing that a user added goes with it.
# usage: list-files.sh <program folder>
set -euo pipefail
folder=$1
cd "$folder"
export LC_ALL=C
# backslashes, and NSIS's own escape of the dollar
Windows() { sed 's|^\./||; s|\$|$$|g; s|/|\\|g'; }

echo '!macro InstallFiles'
find . -type d | sort | while IFS= read -r directory; do
    inside=$(Windows <<<"$directory")
    [ "$inside" = . ] && inside= || inside=\\$inside
    printf 'SetOutPath "$INSTDIR%s"\n' "$inside"
    find "$directory" -maxdepth 1 -type f | sort | sed 's|^\./||; s|\$|$$|g' |
        while IFS= read -r file; do printf 'File "%s/%s"\n' "$folder" "$file"; done
done
echo '!macroend'
echo '!macro RemoveFiles'
find . -type f | sort | Windows | sed 's|.*|Delete "$INSTDIR\\&"|'
find . -mindepth 1 -type d | sort -r | Windows | sed 's|.*|RMDir "$INSTDIR\\&"|'
echo '!macroend'
