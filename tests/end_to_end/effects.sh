#!/usr/bin/env bash
# Effects in a chain, judged by sox and ffmpeg: exact lengths, channels, levels; and sources that go.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
channels() { ffprobe -v error -show_entries stream=channels -of csv=p=0 "$1" | head -n 1; }
# The highest level of a part in thousandths: FILE START FRAMES, in frames.
peak() { sox "$1" -n trim "${2}s" "${3}s" stat 2>&1 | highest 1000; }
highest() { # UNITS: of what sox says, in parts of full scale
    awk -v units="$1" '/^(Max|Min)imum amp/ { v = $3 < 0 ? -$3 : $3; if (v > m) m = v } END { printf "%d\n", m * units + 0.5 }'
}
expect_peak() { # FILE START FRAMES FROM TO
    local p
    p=$(peak "$1" "$2" "$3")
    [ "$p" -ge "$4" ] && [ "$p" -le "$5" ] || fail "frames from $2 of $1 reach $p, not $4 to $5"
}
expect_close() { # FILE OTHER STEPS of 16 bits
    local far
    far=$(sox -m -v 1 "$1" -v -1 "$2" -n stat 2>&1 | highest 32768)
    [ "$far" -le "$3" ] || fail "$1 is $far steps away from $2"
}

# 12345 silent frames, 100000 of sound, 23456 silent frames; different on both sides.
sox -D -r 44100 -n -c 2 -b 16 "$work/sound.wav" synth 100000s square 441 square 441 remix 1v0.8 2v0.4
sox -D "$work/sound.wav" "$work/in/padded.wav" pad 12345s 23456s
convert --to FLAC --out "$work/chain" "$work/in/padded.wav" --effect 'Trim Silence=-at="end"' \
    --effect 'Trim Silence=-keep="100" -at="start"' --effect 'Channels=-to="left"' \
    --effect 'Fade=-in="0" -out="1000" -curve="linear"'
expect_converted 1 0
out=$work/chain/padded.flac
flac -ts "$out" || fail "flac refuses the chain's output"
expect_frames "$out" 104410 # 100 ms are 4410 frames
[ "$(channels "$out")" = 1 ] || fail "the left channel alone is not mono"
expect_peak "$out" 0 4410 0 0
expect_peak "$out" 4410 50000 799 801
expect_peak "$out" 82260 200 397 402 # the middle of the fade
expect_peak "$out" 104310 100 0 2

# Trimmed on both ends it is the very sound again, from a source with delay and padding, too.
flac -s -o "$work/in/flac.flac" "$work/in/padded.wav"
convert --to Wave --out "$work/trim" "$work/in/padded.wav" "$work/in/flac.flac" --effect 'Trim Silence=' \
    --effect 'Channels=-to="swap"' --effect 'Channels=-to="swap"'
expect_converted 2 0
for name in padded flac; do
    expect_same_audio "$work/sound.wav" "$work/trim/$name.wav"
done

# A fade as ffmpeg makes one, but for dither and rounding.
ffmpeg -v error -i "$work/sound.wav" -af afade=d=1:curve=hsin,areverse,afade=d=1:curve=hsin,areverse "$work/faded.wav"
convert --to Wave --out "$work/fade" "$work/sound.wav" --effect 'Fade='
expect_converted 1 0
expect_frames "$work/fade/sound.wav" 100000
expect_close "$work/fade/sound.wav" "$work/faded.wav" 2

# 5.1: by ffmpeg's own downmix, which is the same standard and scales alike.
ffmpeg -v error -f lavfi -i "aevalsrc='0.9*sin(100*t)|0.9*sin(210*t)|0.9*sin(330*t)|0.9*sin(50*t)|0.9*sin(440*t)|0.9*sin(570*t):c=5.1:d=2:s=48000'" \
    -c:a pcm_s16le "$work/in/six.wav"
ffmpeg -v error -i "$work/in/six.wav" -ac 2 "$work/two.wav"
convert --to Wave --out "$work/mix" "$work/in/six.wav" --effect 'Channels='
expect_converted 1 0
[ "$(channels "$work/mix/six.wav")" = 2 ] || fail "5.1 did not become stereo"
expect_close "$work/mix/six.wav" "$work/two.wav" 2

# Nothing left is an error; and only what went well loses its source.
mkdir "$work/go"
cp "$work/sound.wav" "$work/go/good.wav"
sox -D -r 44100 -n -c 2 -b 16 "$work/go/silent.wav" trim 0 1
convert --to FLAC --out "$work/gone" "$work/go/good.wav" "$work/go/silent.wav" --effect 'Trim Silence=' \
    --effect 'Delete Source File='
expect_converted 1 1
expect_same_audio "$work/sound.wav" "$work/gone/good.flac"
[ ! -e "$work/go/good.wav" ] || fail "the source is still there"
[ -e "$work/go/silent.wav" ] || fail "the source of a failure is gone"

# Shorter by trimming: stays.
cp "$work/in/padded.wav" "$work/go/"
convert --to FLAC --out "$work/gone" "$work/go/padded.wav" --effect 'Trim Silence=' --effect 'Delete Source File='
expect_converted 1 0
[ -e "$work/go/padded.wav" ] || fail "a source longer than its output is gone"

# A choice of processors changes nothing of the audio.
convert --to FLAC --out "$work/cpu" "$work"/in/*.wav --effect 'Multi-CPU Force=-cpu1 -cpu2 -noally'
expect_converted 2 0
expect_same_audio "$work/in/padded.wav" "$work/cpu/padded.flac"
finish
