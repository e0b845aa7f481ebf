"""Tags and pictures of audio files as a foreign reader finds them, and what of the sources' is lost in outputs.

Usage: read_tags.py KIND < lines of SOURCE <tab> OUTPUT; KIND is the outputs' format (its extension).
Prints each difference; ends with their number, 0 if there is none.
"""

import sys

import mutagen
from mutagen.apev2 import APEv2
from mutagen.id3 import ID3
from mutagen.mp4 import MP4Tags

ID3_NAMES = {"TIT2": "title", "TPE1": "artist", "TALB": "album", "TPE2": "albumartist", "TCOM": "composer",
             "TPE3": "conductor", "TCON": "genre", "TRCK": "track", "TPOS": "disc", "TDRC": "date",
             "TBPM": "bpm", "TCOP": "copyright", "TPUB": "publisher", "TSRC": "isrc", "TCMP": "compilation"}
MP4_NAMES = {"\xa9nam": "title", "\xa9ART": "artist", "\xa9alb": "album", "aART": "albumartist",
             "\xa9wrt": "composer", "\xa9gen": "genre", "\xa9day": "date", "\xa9cmt": "comment",
             "\xa9lyr": "lyrics", "cprt": "copyright", "trkn": "track", "disk": "disc", "tmpo": "bpm"}
ASF_NAMES = {"title": "title", "author": "artist", "wm/albumtitle": "album", "wm/albumartist": "albumartist",
             "wm/composer": "composer", "wm/genre": "genre", "wm/year": "date", "wm/tracknumber": "track",
             "description": "comment", "copyright": "copyright"}
PLAIN = {"tracknumber": "track", "discnumber": "disc", "description": "comment", "year": "date",
         "organization": "publisher", "label": "publisher", "album artist": "albumartist",
         "unsyncedlyrics": "lyrics"}
COMPARED = {"title", "artist", "album", "albumartist", "composer", "conductor", "genre", "track", "disc",
            "date", "comment", "lyrics", "copyright", "publisher", "isrc", "bpm"}


def of_id3(tags):
    found, pictures = {}, 0
    for frame in tags.values():
        name = ID3_NAMES.get(frame.FrameID)
        if frame.FrameID == "APIC":
            pictures += 1
        elif frame.FrameID == "COMM" and frame.desc == "":
            found.setdefault("comment", []).extend(frame.text)
        elif frame.FrameID == "USLT":
            found.setdefault("lyrics", []).append(frame.text)
        elif frame.FrameID == "TCON":
            found["genre"] = frame.genres
        elif name:
            found.setdefault(name, []).extend(str(text) for text in frame.text)
    return found, pictures


def of_mp4(tags):
    found = {}
    for key, values in tags.items():
        name = MP4_NAMES.get(key) or (key.startswith("----:") and key.split(":", 2)[2].lower())
        if not name or key == "covr":
            continue
        name = PLAIN.get(name, name)
        for value in values if isinstance(values, list) else [values]:
            if isinstance(value, tuple):
                value = "%d/%d" % value if value[1] else str(value[0])
            found.setdefault(name, []).append(
                bytes(value).decode("utf-8", "replace") if isinstance(value, bytes) else str(value))
    return found, len(tags.get("covr", []))


def of_pairs(pairs, names):
    found = {}
    for key, value in pairs:
        name = names.get(key.lower(), key.lower())
        found.setdefault(name, []).append(value)
    for name in ("track", "disc"):
        totals = found.pop(name + "total", None) or found.pop("total" + name + "s", None)
        if totals and name in found and "/" not in found[name][0]:
            found[name][0] += "/" + totals[0]
    return found


def read(path):
    """Compared keys with their values, the number of pictures; None if the reader does not take the file."""
    try:
        file = mutagen.File(path)
        if file is None:
            return None
        tags = file.tags
    except IndexError:  # WavPack of a rate that the reader has no name for
        file = tags = APEv2(path) if path.endswith(".wv") and b"APETAGEX" in open(path, "rb").read() else None
    except Exception:
        return None
    if tags is None:
        found, pictures = {}, 0
    elif isinstance(tags, ID3):
        found, pictures = of_id3(tags)
    elif isinstance(tags, MP4Tags):
        found, pictures = of_mp4(tags)
    elif isinstance(tags, APEv2):
        found = of_pairs([(key, text) for key, value in tags.items() if value.kind == 0 for text in value], PLAIN)
        pictures = sum(key.lower().startswith("cover art") for key in tags)
    elif type(file).__name__ == "ASF":
        found = of_pairs([(key, str(value)) for key, value in tags.items_list()]
                         if hasattr(tags, "items_list") else [(key, str(value)) for key, value in tags], ASF_NAMES)
        pictures = sum(key == "WM/Picture" for key, _ in tags)
    else:
        found = of_pairs(list(tags), PLAIN)
        pictures = len(getattr(file, "pictures", [])) + len(found.pop("metadata_block_picture", []))
    return {key: values for key, values in found.items() if key in COMPARED}, pictures


def normal(key, values):
    texts = []
    for value in values:
        text = value.replace("\r\n", "\n").replace("\r", "\n").rstrip("\0")
        if key in ("track", "disc", "bpm") and text.replace("/", "").isdigit():
            text = "/".join(str(int(part)) for part in text.split("/") if int(part)) or "0"
        if key == "date":
            text = text.replace(" ", "T").removesuffix(":00")
        if text and text not in texts:
            texts.append(text)
    return sorted(texts) if key == "composer" else texts


def main():
    kind, differences = sys.argv[1], 0
    for line in sys.stdin:
        source, output = line.rstrip("\n").split("\t")
        wanted, got = read(source), read(output)
        if got is None:
            print("%s: the foreign reader does not take it" % output)
            differences += 1
            continue
        if wanted is None:
            continue
        for key in sorted(wanted[0]):
            before, after = normal(key, wanted[0][key]), normal(key, got[0].get(key, []))
            if kind in ("mp3", "wav") and key in ("comment", "lyrics"):  # one text holds them all
                before = ["\n".join(before)] if before else []
            if before != after:
                print("%s -> %s: %s is %r, not %r" % (source, kind, key, after, before))
                differences += 1
        if wanted[1] > got[1]:  # decoders may find more than the reader
            print("%s -> %s: %d pictures, not %d" % (source, kind, got[1], wanted[1]))
            differences += 1
    sys.exit(min(differences, 100))


if __name__ == "__main__":
    main()
