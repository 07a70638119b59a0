Ways to choose directories: a typed path and a URL, a drop and a paste on the main window, a set chosen before,
a key that picks and one that only opens; what lies in another directory is said in one line.
== files ==
a/one.txt text
a/in/two.txt text
b/three.txt other
c/four.txt text
== script ==
call Picture1_Click
set 目录选择.Text_path ROOT/a
call 目录选择.Command_path_Click
set 目录选择.Text_path file://ROOT/a/in
call 目录选择.Command_path_Click
show 目录选择.list_selected_dir
show 目录选择.Label_nested
set 目录选择.Text_path ROOT/a/one.txt
call 目录选择.Command_path_Click
call 目录选择.Command34_Click
show selected_dir_count
set Text_given "ROOT/b" 'ROOT/c'
call drop_directories
show selected_dir_count
call Picture1_Click
call 目录选择.Command_recent_Click
show 目录选择.List_recent
mouse 目录选择.List_recent click 2 1
show 目录选择.list_selected_dir
set 目录选择.Dir_select ROOT/b
key 目录选择.Dir_select 32
show 目录选择.list_selected_dir
mouse 目录选择.list_selected_dir click 1 1
call 目录选择.Command_remove_Click
show 目录选择.list_selected_dir
call 目录选择.Command_sele_Click
call 目录选择.Command34_Click
show selected_dir_count
set Text_given file://ROOT/%63
call paste_directories
show selected_dir_count
set Text_given nothing
call paste_directories
quit
== output ==
rows	2
1	0	0	ROOT/a
2	0	0	ROOT/a/in
目录选择.Label_nested	caption	ROOT/a/in 在 ROOT/a 之内,随它一起搜索
目录选择.Label_nested	tooltip	
目录选择.Label_nested	visible	1
目录选择.Label_nested	enabled	1
message	提示	ROOT/a/one.txt  不是目录	ok	1000
selected_dir_count	1
selected_dir_count	2
rows	2
1	0	0	ROOT/b 等 2 个目录
2	0	0	ROOT/a
rows	1
1	0	0	ROOT/a
rows	1
1	0	0	ROOT/a
rows	0
selected_dir_count	1
selected_dir_count	2
message	提示	没有可选中的目录。\r\nnothing	ok	1000
== status ==
1
== file 最近的目录.txt ==
Corvane recent directories 1
 3 
 2 
ROOT/b
ROOT/c
 1 
ROOT/b
 1 
ROOT/a
