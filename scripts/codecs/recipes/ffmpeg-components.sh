#!/bin/bash
# Prints FFmpeg's configure switches for reading audio and for writing AAC, ALAC and their files, one a line.
# usage: ffmpeg-components.sh <FFmpeg source folder>
# Names that the source does not have are an error: configure itself would pass over them silently.
set -euo pipefail
source=$1

# Every decoder between the headings "audio codecs" and "subtitles"; what needs an outside library stands below them.
decoders=$(awk '/\/\* audio codecs \*\//{on=1} /\/\* subtitles \*\//{on=0} on' "$source/libavcodec/allcodecs.c" |
    sed -nE 's/^extern const FFCodec ff_(.*)_decoder;.*/\1/p')
[ "$(wc -l <<<"$decoders")" -gt 150 ] || { echo "the decoder list has another layout" >&2; exit 1; }

# Audio decoders that the source keeps among the video ones.
decoders+=" speex s302m dvaudio eightsvx_exp eightsvx_fib"

demuxers="
    aa aac aax ac3 ace acm act adp ads adx aea afc aiff aix alp amr amrnb amrwb apc ape apm aptx aptx_hd
    argo_asf argo_brp argo_cvg asf asf_o ast au avi avr bfstm binka bit boa brstm caf codec2 codec2raw daud dcstr
    derf dfpwm dsf dss dts dtshd eac3 epaf flac flv fsb fwse g722 g723_1 g726 g726le g729 genh gsm hca hcom
    iff ifv ilbc ircam iss kvag live_flv loas matroska mca mlp mmf mods mov mp3 mpc mpc8 mpegps mpegts msf
    msp mtaf musx nistsphere nsp ogg oma pp_bnk pvf qcp redspark rm rsd rso s337m sbc scd sds sdx ser shorten sln
    sol sox spdif svag svs tak truehd tta tty vag voc vpk vqf w64 wav wsaud wsd wsvqa wv wve xa xmv xvag xwma
    pcm_alaw pcm_f32be pcm_f32le pcm_f64be pcm_f64le pcm_mulaw pcm_s16be pcm_s16le pcm_s24be pcm_s24le
    pcm_s32be pcm_s32le pcm_s8 pcm_u16be pcm_u16le pcm_u24be pcm_u24le pcm_u32be pcm_u32le pcm_u8 pcm_vidc"

# Films whose sound one of the decoders reads; their pictures are passed over.
demuxers+="
    bethsoftvid bfi bink bmv c93 cdxl dsicin dv dxa ea ea_cdata fourxm gdv gxf hnm idcin ipmovie ivr jv kux lxf mm
    moflex mtv mv mxf nsv nut nuv paf pva rl2 roq rpl segafilm siff smacker smush swf thp tiertexseq tmv vividas
    vivo vmd wc3 wtv yop"

parsers="aac aac_latm ac3 adx amr cook dca dolby_e dvaudio flac g723_1 g729 gsm mlp mpegaudio opus sbc sipr tak vorbis xma"

filters="aac_adtstoasc dca_core eac3_core extract_extradata mp3_header_decompress null
    opus_metadata pcm_rechunk remove_extradata setts truehd_core"

encoders="aac alac"

muxers="caf ipod mp4 w64"

protocols="file pipe"

# Enable <kind> <suffix in the source> <file> <name>...
Enable() {
    local kind=$1 suffix=$2 file=$3 name
    shift 3
    for name; do
        if grep -qE "[ *]ff_${name}_${suffix};" "$source/$file"; then
            echo "--enable-$kind=$name"
        else
            echo "no $kind named '$name' in $file" >&2
            unknown=1
        fi
    done
}

unknown=0
Enable decoder decoder libavcodec/allcodecs.c $decoders
Enable encoder encoder libavcodec/allcodecs.c $encoders
Enable demuxer demuxer libavformat/allformats.c $demuxers
Enable muxer muxer libavformat/allformats.c $muxers
Enable parser parser libavcodec/parsers.c $parsers
Enable bsf bsf libavcodec/bitstream_filters.c $filters
Enable protocol protocol libavformat/protocols.c $protocols
exit $unknown
