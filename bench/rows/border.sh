# What the automation border costs on Windows, in Wine: the same work in one process without it and with it.
row_border() {
    local build=$root/build/windows-x86 what plain border ratio most
    if ! "$root/scripts/windows/dependencies.sh" x86 --print >/dev/null; then
        echo "border: left out, because the libraries for Windows are missing" >&2
        return
    fi
    "$root/scripts/build.sh" windows-x86 bcryptprimitives
    cmake -S "$root" --preset windows-x86 -DLUMARIN_BENCH=ON >/dev/null
    "$root/scripts/build.sh" windows-x86 bench_border bench_first_window
    while read -r what plain border ratio most; do
        line "border, $what" "$border" - "without it" "$plain" - "$ratio" "<= $most" "$(calculate "$ratio <= $most")"
    done < <("$root/scripts/windows/wine.sh" x86 "$build/bin/bench_border.exe" "$out/border" "$runs" | tr -d '\r')
    # For information: on a quiet machine no more than 600.
    line "border, start" "$(for _ in 1 2 3; do
        xvfb-run -a "$root/scripts/windows/wine.sh" x86 "$build/bin/bench_first_window.exe" "$out/first" | tr -d '\r'
    done | sort -n | head -n 1)" - "first window" - - - - 1
}
