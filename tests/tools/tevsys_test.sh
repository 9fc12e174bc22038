#!/usr/bin/env bash
# tevsys_test.sh TEVSYS.EXE FIXTURES: what the program tevsys promises.
. "$(dirname "${BASH_SOURCE[0]}")/expectations.sh"

# get
tevsys get a.system
exits 0; prints $'from system\n'; says_nothing
tevsys get a.both
exits 0; prints $'from user\n'
tevsys get a.place
exits 0; prints "$place\\x"$'\n'
tevsys get TEV_TEST_LIST
exits 0; prints $'a;b;c\n'
tevsys get get
exits 0; prints $'a key named as a verb\n'
tevsys get a.missing
exits 1; prints ''; says a.missing; says_one_line

# list
tevsys list
exits 0; says_nothing
prints "system	TEV_TEST_DIR	$place
system	a.both	from system
system	a.place	$place\\x
system	a.system	from system
system	get	a key named as a verb
system	tev.env.add.1	TEV_TEST_LIST|c
system	tev.env.del.1	TEV_TEST_OLD
system	tev.env.new.1	TEV_TEST_NEW|fresh
system	tev.log.level	DEBUG
system	tev.sys.config.dir	$place\\system/
system	tev.system.properties	$place\\system/tev.system.properties
user	a.both	from user
user	tev.user.config.dir	$place\\user/
user	tev.user.properties	$place\\user/tev.user.properties
"
holds 'is sorted' env LC_ALL=C sort -c out

# env
tevsys env
exits 0; says_nothing
prints_line 'TEV_TEST_LIST=a;b;c'
prints_line 'TEV_TEST_NEW=fresh'
prints_no_line '^TEV_TEST_OLD='
prints_no_line $'\r'

# where
no_program='program	-	not found: none of Plinth.dll, SensorSupportDataLib.dll, MeasureKitLib.dll'
no_program="$no_program leads to one"
no_toolkit='toolkit	-	not found: neither KPT_DATA_DIR nor CSM_PLUGIN_DIR leads to one'
bin=$(dirname "$tevsys")
mkdir -p kit/lib/CSMAPI.dll other/lib/CSMAPI.dll file/lib
: >file/lib/CSMAPI.dll
tevsys where
exits 0; says_nothing
documents=$(cut -f2 out | tail -n 1)
prints "exe	Z:${bin//\//\\}\\	this program
$no_program
$no_toolkit
documents	$documents	known folder Documents
"
holds 'gives the whole path of the documents' grep -qE '^[A-Z]:\\(.*\\)?$' <<<"$documents"
USER=tev-no-such-user tevsys where
exits 0; says_nothing
prints_line 'documents	-	not found: there is no such folder'
finds_toolkit() {
    KPT_DATA_DIR=$1 CSM_PLUGIN_DIR=$2 tevsys where
    exits 0; says_nothing
    prints_line "$3"
}
by_data="toolkit	$place\\kit\\lib\\	variable KPT_DATA_DIR"
by_plugins="toolkit	$place\\kit\\lib\\	variable CSM_PLUGIN_DIR"
finds_toolkit "$place/kit/Data" '' "$by_data"
finds_toolkit "$place/kit/data" "$place/other/plugins" "$by_data"
finds_toolkit "$place/kit/data" "$place/kit/plugins" "$by_data"
finds_toolkit '' "$place\\kit\\Plugins\\" "$by_plugins"
finds_toolkit "$place/kit/bin" "$place/kit/plugins" "$by_plugins"
finds_toolkit "$place/file/data" "$place/kit/plugins" "$by_plugins"
finds_toolkit "$place/file/data" "$place/file/plugins" "$no_toolkit"
# what the system file sets is seen
mkdir directed
printf 'tev.env.new.kit = KPT_DATA_DIR|%%TEV_TEST_DIR%%/kit/data\n' >directed/tev.system.properties
TEV_SYS_CONFIG_DIR=$place\\directed tevsys where
exits 0; says_nothing
prints_line "$by_data"
# A folder of a marker module's name in the program's path counts as that module.
long=$(printf 'x%.0s' {1..100})
while IFS='|' read -r folder name module; do
    mkdir -p "$folder/$name"
    ln -s "$bin"/{tevsys.exe,*.dll} "$folder/$name"
    built=$tevsys
    tevsys=$work/$folder/$name/tevsys.exe
    tevsys where
    exits 0; says_nothing
    shown=$place\\${folder//\//\\}
    prints_line "exe	$shown\\$name\\	this program"
    prints_line "program	$shown\\	module $module"
    tevsys=$built
done <<FOLDERS
two words|Plinth.dll|Plinth.dll
dépôt|sensorsupportdatalib.DLL|SensorSupportDataLib.dll
$long/$long/$long|MeasureKitLib.dll|MeasureKitLib.dll
FOLDERS

# demo: its whole text is compared by the demo's own check
tevsys demo
exits 0; says_nothing
prints_line '  a.both = from user'
prints_line '    before  a;b'
prints_line '    after   a;b;c'

# figures
figures() {
    tevsys figures "$@"
    exits 0; says_nothing
}
figures 123.456 0.0234
prints $'123.46\t0.02\n'
figures --scientific 123.456 0.0234
prints $'1.2346e+02\t2e-02\n'
figures 123.456 0.0234 --scientific
prints $'1.2346e+02\t2e-02\n'
figures -123.456 .0234
prints $'-123.46\t0.02\n'
figures -- -.123456 0.0234
prints $'-0.12\t0.02\n'
figures 1.23456E2 +2.34e-2
prints $'123.46\t0.02\n'
figures 0 5
prints $'0.0\t5\n'
figures 12.5 1
prints $'12\t1\n'
while IFS='|' read -r value uncertainty why; do
    tevsys figures "$value" "$uncertainty"
    exits 1; prints ''; says "no figures: $why"; says_one_line
done <<'REFUSALS'
1|0|.*above 0
1|-0.1|.*above 0
0|0|.*above 0
1|1e-400|.*above 0
1|1e-30|.*decimals
1e-30|1|.*decimals
REFUSALS
while IFS='|' read -r value uncertainty word; do
    tevsys figures "$value" "$uncertainty"
    exits 2; prints ''; says "no decimal number: $word"; says_one_line
done <<'WORDS'
one|0.1|one
1|some|some
|1|
1|0x10|0x10
1,5|1|1,5
1e400|1|1e400
1|inf|inf
WORDS

# guid
guid_form='^[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}$'
tevsys guid
exits 0; says_nothing
holds 'prints a GUID' grep -Eq "$guid_form" out
holds 'prints one line' [ "$(wc -l <out)" = 1 ]
mv out first
tevsys guid
exits 0
holds 'prints a GUID' grep -Eq "$guid_form" out
holds 'prints another GUID each time' [ "$(<out)" != "$(<first)" ]

# set: the line of the key, or a line at the end; all else stays
tevsys set a.both 'a new = value'
exits 0; prints ''; says_nothing
user_file_is $'# a comment\na.both = a new = value\n'
tevsys get a.both
exits 0; prints $'a new = value\n'
tevsys set b.path /data
exits 0
tevsys set c.number -5
exits 0
tevsys set -- d.option --help
exits 0
tevsys set e.list '[a,b]'
exits 0
tevsys set f.reference '%TEV_TEST_DIR%\y'
exits 0
tevsys set c.number 6
exits 0
user_file_is '# a comment
a.both = a new = value
b.path = /data
c.number = 6
d.option = --help
e.list = [a,b]
f.reference = %TEV_TEST_DIR%\y
'
tevsys get f.reference
exits 0; prints "$place\\y"$'\n'

# set: what the file would not give back
plain_user
before=$(<"$user")
refuses() {
    tevsys set "$1" "$2"
    exits 2; prints ''; says 'nothing set'; says_one_line
    user_file_is "$before"$'\n'
}
refuses '' value
refuses key ''
refuses ' key' value
refuses key 'value '
refuses '#key' value
refuses k=ey value
refuses key $'two\nlines'
refuses tev.user.properties value

# no user file: nothing is made
export TEV_USER_CONFIG_DIR=$place\\empty
tevsys set a.both x
exits 1; prints ''; says 'create an empty one'; says TEV_USER_CONFIG_DIR; says_one_line
holds 'makes no file' [ -z "$(ls empty)" ]
tevsys get a.both
exits 0; prints $'from system\n'
# an empty user file is enough
: >empty/tev.user.properties
tevsys set a.both x
exits 0
tevsys get a.both
exits 0; prints $'x\n'
rm empty/tev.user.properties

# no file at all
export TEV_SYS_CONFIG_DIR=$place\\empty
tevsys list
exits 0; says_nothing
prints "$(printf 'system\t%s\t%s\n' tev.sys.config.dir '' \
    tev.system.properties tev.system.properties)"$'\n'
tevsys get a.system
exits 1; prints ''

# help
tevsys --help
exits 0; says_nothing
verbs='get list explain check set env run where demo figures guid doctor'
for verb in $verbs; do
    holds "names the verb $verb" grep -q "^  $verb  *[A-Z]" out
done
holds 'names the exit codes' grep -q 'Exit codes: 0 .*1 .*2 ' out
while IFS='|' read -r verb text; do
    tevsys "$verb" --help
    exits 0; says_nothing
    holds "describes itself: $text" grep -q -- "$text" out
done <<'VERBS'
get|KEY .*REQUIRED
list|table<TAB>key<TAB>value
set|VALUE .*REQUIRED
env|name=value
where|name<TAB>folder<TAB>how
demo|Folders and files
figures|UNCERTAINTY .*REQUIRED
figures|value<TAB>uncertainty
guid|36 characters
VERBS

# The examples of every manual end as they say.
cp -r "$root"/examples/demo/{system,user} "$root/tests/tools/odd" .
mkdir clean
printf 'a = 1\n' >clean/tev.system.properties
example() {
    TEV_SYS_CONFIG_DIR=$place\\system TEV_USER_CONFIG_DIR=$place\\user WINEPATH=Z:$bin \
        eval "$1"
}
for verb in '' $verbs; do
    subject="tevsys $verb --help" code=0
    "$root/scripts/wine.sh" "$tevsys" $verb --help >manual
    for heading in DESCRIPTION 'EXIT STATUS' EXAMPLES; do
        holds "has the heading $heading" grep -qx "$heading" manual
    done
    sed '1,/^EXAMPLES$/d' manual | grep '^  tevsys ' >examples
    holds 'has examples' [ -s examples ]
    while IFS= read -r command <&3; do
        wanted=0
        [[ $command == *'  # '* ]] && wanted=${command##*  # }
        example "${command%  # *}"
        subject=$command
        exits "$wanted"
        case $command in
            *' set demo.'* | *' set -- '* | *' exit '* | *' check clean'*) ;;
            *'  # '*) holds 'says something' [ -s out -o -s err ] ;;
            *) holds 'prints something' [ -s out ] ;;
        esac
        holds 'shows no colour' lacks $'\x1b'
    done 3<examples
done

# wrong usage
while IFS='|' read -ra words; do
    tevsys "${words[@]}"
    exits 2; prints ''; holds 'says why' [ -s err ]
done <<'USAGES'

get
get|a|b
set|a
list|a
list|--colour
explain
explain|a|b
explain|a|--all
explain|
check|--all
check|a|--redact
env|--dry
run
run|--
run||x
where|a
remove|a
figures
figures|1
figures|1|2|3
figures|-.5|1
guid|a
--verbose
USAGES

end 'tevsys keeps its promises'
