#!/usr/bin/env bash
# tevsys_texts_test.sh TEVSYS.EXE FIXTURES: what tevsys shows and hides, where, and in which characters.
. "$(dirname "${BASH_SOURCE[0]}")/expectations.sh"
bin=$(dirname "$tevsys")

# what --redact hides
mkdir hidden
printf '%s\n' 'db.password swordfish' 'db.password = %x%%%cod%e' 'tev.env.new.path.1 = TEV_TEST_NEW|e' \
    'tev.log.level = %db.key%' 'db.key = herring' >hidden/tev.system.properties
shows_none() {
    for secret in "$@"; do prints_no_line "$secret"; done
}
tevsys check hidden/tev.system.properties --redact 'db.*' --redact 'tev.env*'
exits 1; shows_none swordfish cod herring '"e"'
prints_line 'hidden/tev.system.properties:3: warning: the directive is ignored: there is no such folder: "[hidden]" (TEV_TEST_NEW) [ignored-directive]'
tevsys check hidden/tev.system.properties --redact db.password --json
exits 1; shows_none swordfish cod
TEV_SYS_CONFIG_DIR=$place\\hidden tevsys explain db.password --redact 'db.*'
exits 0; shows_none cod
TEV_SYS_CONFIG_DIR=$place\\hidden tevsys explain db.password --redact 'db.*' --json
exits 0; shows_none cod
# of a directive without "|" the value is taken for the variable's name
printf '%s\n' 'tev.env.new.secret = hunter2' 'tev.env.add.secret2 = swordfish|b|c' \
    'tev.env.del.pw = carp' >hidden/tev.system.properties
for form in '' --json; do
    tevsys check hidden/tev.system.properties $form --redact '*secret*' --redact '*.pw'
    exits 1; shows_none hunter2 swordfish carp
    TEV_SYS_CONFIG_DIR=$place\\hidden tevsys env --dry-run $form --redact '*secret*' --redact '*.pw'
    exits 1; shows_none hunter2 swordfish carp
done
# names in any letter case, beyond ASCII, of files and of variables
printf 'größe = swordfish\nDÉPÔT.x = carp\n' >hidden/tev.system.properties
for pattern in 'gr?ße' 'GRÖßE' 'größe'; do
    TEV_SYS_CONFIG_DIR=$place\\hidden tevsys explain --all --redact "$pattern" --redact 'dépôt*'
    exits 0; shows_none carp swordfish
done
for pattern in 'TEV_TEST_GR?SSE' 'tev_test_grösse' 'TEV_TEST_GRÖSSE'; do
    subject="tevsys env --redact $pattern" code=0
    env TEV_TEST_GRÖSSE=swordfish "$root/scripts/wine.sh" "$tevsys" env --redact "$pattern" >out ||
        code=$?
    exits 0; shows_none swordfish
done

# texts beyond ASCII, of files and of variables
printf 'a.mixed = caf\xc3\xa9 %%TEV_TEST_FORM%% \xe9\n' >hidden/tev.system.properties
TEV_TEST_FORM=größe TEV_SYS_CONFIG_DIR=$place\\hidden tevsys get a.mixed
exits 0; prints $'café größe é\n'
for verb in get explain; do
    subject="tevsys $verb of a variable beyond ASCII" code=0
    env TEV_TEST_GRÖSSE=viel "$root/scripts/wine.sh" "$tevsys" "$verb" TEV_TEST_GRÖSSE >out || code=$?
    exits 0; holds 'finds it' grep -q viel out
done

# a system file that is there and cannot be read
printf 'a = 1\n' >hidden/tev.system.properties
mkfifo gate
mkdir dépôt
ln hidden/tev.system.properties dépôt/tev.user.properties
WINEPATH=Z:$bin "$root/scripts/wine.sh" "$host" "lock:$place\\hidden\\tev.system.properties" hold \
    <gate >held &
locker=$!
exec 9>gate
for _ in {1..100}; do
    grep -q ready held && break
    sleep 0.1
done
holds 'is locked' grep -qx locked held
TEV_SYS_CONFIG_DIR=$place\\hidden tevsys check
exits 2; prints ''; says 'cannot read .*hidden'; says_one_line
TEV_USER_CONFIG_DIR=$place\\dépôt tevsys set a 2
exits 1; prints ''; says 'could not replace .*dépôt.*tev.user.properties'; says_one_line
exec 9>&-
wait "$locker"
# a file that is not found is not taken for a clean one
TEV_USER_CONFIG_DIR=$place\\empty tevsys check hidden/tev.system.properties
exits 0; says_nothing
TEV_SYS_CONFIG_DIR=$place\\empty tevsys check
exits 0; says 'note: no tev.system.properties was found'; says_one_line

# colours on a terminal only, and not against NO_COLOR
on_terminal() {
    subject="tevsys $* on a terminal" code=0
    TERM=xterm script -qec "$(printf '%q ' "$root/scripts/wine.sh" "$tevsys" "$@")" \
        /dev/null </dev/null >terminal || code=$?
    # Wine's console hides the cursor around each character.
    sed 's/\x1b\[?25[lh]//g' terminal >out
}
shows_colour() { grep -q $'\x1b\\[[0-9;]*[1-9]m' out; }
on_terminal explain a.both
exits 0
holds 'shows colours' shows_colour
NO_COLOR=1 on_terminal explain a.both
exits 0
holds 'has a text' grep -q a.both out
holds 'shows no colours' eval '! shows_colour'
tevsys explain a.both
exits 0
holds 'shows no colours' lacks $'\x1b'
# control bytes are not for a terminal to obey
printf 'bell = \a\033[31mred\n' >hidden/tev.system.properties
TEV_SYS_CONFIG_DIR=$place\\hidden on_terminal get bell
exits 0
holds 'shows question marks' grep -qF '??[31mred' out
holds 'has no bell' lacks $'\a'
TEV_SYS_CONFIG_DIR=$place\\hidden tevsys get bell
exits 0; prints $'\a\033[31mred\n'
# the terminal is given back as it was
holds 'leaves the code page' env TERM=xterm script -qec "$(printf '%q ' "$root/scripts/wine.sh" \
    "$tevsys" run -- cmd /c chcp)" terminal </dev/null
sed -i 's/\x1b\[?25[lh]//g' terminal
holds 'leaves the code page' eval '! grep -q 65001 terminal && grep -q "[0-9][0-9][0-9]" terminal'

# set: what check would say of the line is told
plain_user
while IFS='|' read -r key value why; do
    tevsys set "$key" "$value"
    exits 0; prints ''; says "warning: $why"; says_one_line
done <<'WARNINGS'
tev.log.level|verbose|"verbose" is no level
tev.env.new.9|X|directives count in the system file only
tev.lgo.level|DEBUG|unknown key
b.reference|%TEV_NO_SUCH%|%TEV_NO_SUCH% is in no table
WARNINGS

# set: the folder may have a name beyond ASCII
TEV_USER_CONFIG_DIR=$place\\dépôt tevsys set a 2
exits 0; prints ''; says_nothing
holds 'is set there' grep -qx 'a = 2' dépôt/tev.user.properties

# check: a file may have any name
printf 'a = 1\na = 2\n' >'[a,b]'
tevsys check --json '[a,b]'
exits 1; holds 'names the file' grep -q '"file": "\[a,b\]"' out
tevsys check '[]'
exits 2; prints ''; says 'cannot read \[\]'
tevsys check -- -none
exits 2; prints ''; says 'cannot read -none'
# one that cannot be read does not keep what was found in another from being told
tevsys check '[]' '[a,b]' empty/none
exits 2; prints_line '[a,b]:1: warning: "a" is written again in line 2, which counts [duplicate-key]'
says 'cannot read \[\]'; says 'cannot read empty/none'

# run: the program gets its arguments as they stand
for mark in '' --; do
    tevsys run $mark cmd /c echo '[a,b]' --json '[]'
    exits 0; prints $'[a,b] --json []\r\n'
done

end 'tevsys shows what it should'
