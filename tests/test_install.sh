#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks what a desktop needs of it: both programs,
# the desktop entry and metainfo (valid, and pointing at what is installed), the icons, the MIME
# type of project files (found by xdg-mime on the installed tree), and man
# pages that tell every command and option that "kv1 --help" tells.
#   test_install.sh BUILD_DIR
set -euo pipefail
build="$1"
prefix="$(mktemp -d)"
trap 'rm -rf "$prefix"' EXIT
failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }

cmake --install "$build" --prefix "$prefix" >/dev/null

id=works.orvane.Kelvrin
desktop="$prefix/share/applications/$id.desktop"
metainfo="$prefix/share/metainfo/$id.metainfo.xml"
for f in "$desktop" "$metainfo" "$prefix/share/icons/hicolor/scalable/apps/$id.svg" \
    "$prefix/share/man/man1/kelvrin.1.gz" "$prefix/share/man/man1/kv1.1.gz"; do
    [ -s "$f" ] || fail "${f#"$prefix"/} is missing"
done
for size in 48 256; do
    icon="$prefix/share/icons/hicolor/${size}x${size}/apps/$id.png"
    file -b "$icon" 2>/dev/null | grep -q "PNG image data, $size x $size" || fail "no ${size}px PNG icon"
done

# The launcher and the metainfo name installed programs and an installed icon.
exec_line="$(sed -n 's/^Exec=//p' "$desktop")"
for binary in "${exec_line%% *}" $(sed -n 's:.*<binary>\(.*\)</binary>.*:\1:p' "$metainfo"); do
    [ -x "$prefix/bin/$binary" ] || fail "$binary is named but not installed in bin/"
done
[ "$(sed -n 's/^Icon=//p' "$desktop")" = "$id" ] || fail "Icon= is not $id"
grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" "$metainfo" ||
    fail "the metainfo does not launch $id.desktop"
if command -v desktop-file-validate >/dev/null; then
    desktop-file-validate "$desktop" || fail "desktop-file-validate"
fi
if command -v appstreamcli >/dev/null; then
    appstreamcli validate --no-net "$metainfo" >/dev/null || fail "appstreamcli validate"
fi

# Project files: the MIME type is known by its name alone, has its icon, and the launcher opens it.
mime="$prefix/share/mime/packages/kelvrin.xml"
type=application/x-kelvrin-project
[ -s "$mime" ] || fail "share/mime/packages/kelvrin.xml is missing"
for icon in 48x48/mimetypes/application-x-kelvrin-project.png scalable/mimetypes/application-x-kelvrin-project.svg; do
    [ -s "$prefix/share/icons/hicolor/$icon" ] || fail "the icon $icon is missing"
done
grep -q "^MimeType=$type;$" "$desktop" || fail "the desktop entry does not take $type"
grep -q '^Exec=kelvrin %f$' "$desktop" || fail "the desktop entry does not pass the file"
if command -v update-mime-database >/dev/null && command -v xdg-mime >/dev/null && command -v gio >/dev/null; then
    update-mime-database "$prefix/share/mime"
    printf '4\r\n1\r\n2\r\nToUse\r\n65280\r\n65280\r\nToUse\r\n' >"$prefix/trip.kv1"
    # xdg-mime asks the desktop's own file type service, here GIO, which reads the installed tree.
    found="$(XDG_CURRENT_DESKTOP=GNOME XDG_DATA_HOME="$prefix/home" XDG_DATA_DIRS="$prefix/share:/usr/share" \
        xdg-mime query filetype "$prefix/trip.kv1")"
    [ "$found" = "$type" ] || fail "xdg-mime query filetype trip.kv1 says '$found'"
else
    fail "update-mime-database, xdg-mime or gio is missing"
fi

# The installed kv1 runs, and its man page keeps up with its help.
help="$("$prefix/bin/kv1" --help)" || fail "the installed kv1 --help"
page="$(gzip -dc "$prefix/share/man/man1/kv1.1.gz" | sed 's/\\-/-/g')"
words="$(grep -oE '^  kv1 [a-z]+|(^|[ ,])--?[a-z][a-z-]*' <<<"$help" | sed 's/^  kv1 //; s/^[ ,]//' | sort -u)"
[ -n "$words" ] || fail "kv1 --help names no commands or options"
for word in $words; do
    grep -qF -- "$word" <<<"$page" || fail "the kv1 man page does not mention $word"
done
if command -v man >/dev/null; then
    for page in kelvrin kv1; do
        warnings="$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$prefix/share/man/man1/$page.1.gz" 2>&1 >/dev/null)"
        [ -z "$warnings" ] || fail "$page.1: $warnings"
    done
fi

[ "$failures" -eq 0 ] && echo "installed files are complete"
exit $((failures > 0))
