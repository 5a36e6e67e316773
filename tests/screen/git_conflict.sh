#!/bin/sh
# A conflict of git is solved in the window: git_conflict.sh ZBC RUN_SCRIPT...
# Two branches change one line of a project differently. RUN_SCRIPT runs a script by the hands of a user; after
# its save git takes the project as merged.
set -eu
zbc=$1
shift
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -p "$folder/bin" "$folder/home" "$folder/Etcher"
ln -s "$zbc" "$folder/bin/zbc"
PATH=$folder/bin:$PATH
HOME=$folder/home
ZELTOBENCH_CONFIG=$folder/config
ZELTOBENCH_STATE=$folder/state
GIT_CONFIG_NOSYSTEM=1
GIT_AUTHOR_NAME=Tester GIT_AUTHOR_EMAIL=tester@example.com
GIT_COMMITTER_NAME=Tester GIT_COMMITTER_EMAIL=tester@example.com
export PATH HOME ZELTOBENCH_CONFIG ZELTOBENCH_STATE GIT_CONFIG_NOSYSTEM
export GIT_AUTHOR_NAME GIT_AUTHOR_EMAIL GIT_COMMITTER_NAME GIT_COMMITTER_EMAIL
unset XDG_CONFIG_HOME
cd "$folder/Etcher"

# The project with this description and this further message.
write_project() {
    printf '\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n* %s\r\nHello: S1 F1 W H->E.\r\n%b' "$1" "$2" |
        iconv -f utf-8 -t utf-16 > Etcher.zbp
}
commit() {
    git add -A
    git commit --quiet -m "$1"
}

git init --quiet --initial-branch=main
zbc git-setup > /dev/null
write_project Base ''
commit Begin
git checkout --quiet -b theirs
write_project Theirs '* Added by them\r\nMore: S2 F1 H->E.\r\n'
commit Theirs
git checkout --quiet main
write_project Ours ''
commit Ours
if git merge --quiet theirs > "$folder/merge" 2>&1; then
    echo "git_conflict: the merge has no conflict" >&2
    exit 1
fi
test -f Etcher.zbp.conflicts

cat > "$folder/solve.zbs" <<SCRIPT
start $folder/Etcher/Etcher.zbp
expect frmWorkbench.lblNotice text "Etcher has 1 conflict of a merge"
click frmWorkbench.cmdNotice[1]
expect frmCompare visible true
expectrows frmCompare.lvwConflicts
  Hello: description | Ours | Theirs | ! Ours
end
click frmCompare.cmdTheirs
click frmMain.tbrMain[Save]
expect frmCompare visible false
expectnobox
SCRIPT
"$@" "$folder/solve.zbs"

if [ -e Etcher.zbp.conflicts ]; then
    echo "git_conflict: the save has left the conflicts" >&2
    exit 1
fi
git commit --quiet -am Merged
zbc diff --textconv Etcher.zbp > "$folder/text"
grep -q '^\* Theirs' "$folder/text"
grep -q 'More: S2 F1 H->E' "$folder/text"
test -z "$(git status --porcelain)"
