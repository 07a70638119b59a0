An empty directory: the search says so, keeps the stored list, and the comparison has nothing to do.
== files ==
d/
== script ==
call Picture2_Click
select ROOT/d
call Picture2_Click
call Picture3_Click
show 目录选择.list_selected_dir
== status ==
1
== output ==
message	提示	请选择要清理的目录	ok	1009
message	提示	没搜索到文件。\r\n请检查 [不参加比较的文件类型] 和 [不参加搜索的目录]。或看看目录选择的内容	ok	1000
message	提示	没有文件，请重新选择目录,重新搜索	ok	1009
rows	1
1	0	0	ROOT/d
== no file 文件清单.txt ==
== no file 相同文件.txt ==
