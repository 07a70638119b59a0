Nothing to find, nothing to show, nothing to delete: each is said in its words.
== files ==
d/a/file text
== script ==
call disp_dir
call Picture8_Click
call del_dir
call Picture6_Click
select ROOT/d
call Picture6_Click
show StatusBar1
call disp_dir
== status ==
1
== output ==
message	提示	ROOT/program/spasedir.txt  不存在,请运行查找空子目录	ok	1000
message	提示	非空目录状态,不能删除	ok	1000
message	提示	没有选定的目录，请在[目录选择]中选定目录	ok	1000
message	提示	没有空的子目录,不用整理	ok	1000
1	搜索出目录:2
2	空目录:0
3	
4	
5	
6	0:0:...
7	查找空目录
message	提示	没有空的子目录,不用整理	ok	1000
== file spasedir.txt ==
