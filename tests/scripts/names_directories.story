Directories of one name anywhere below the selected one; a link to what has been walked gives none.
== files ==
d/1/src/
d/2/SRC/
d/2/图片/
d/3/图片/
d/3/src this is a file
d/3/龟/
d/link/
d/link/src -> d/2
== script ==
call search_repeat_dir_name
select ROOT/d
call search_repeat_dir_name
show StatusBar1
show ListView1
== status ==
1
== output ==
message	提示	没有选定的目录，请在[目录选择]中选定目录	ok	1000
message	检查目录相同完毕	已　检　查:10 个文件 \r\n同名目录有:2个  用时: 0:0:...	ok	1000
1	搜索目录:10
2	
3	同名目录:
4	2个目录
5	已检查:9个文件
6	0:0:...
7	同名文件
rows	2	list_mode	4	visible	1
1	1	0	ROOT/d/1/src/	0	ROOT/d/2/SRC/	0
2	2	0	ROOT/d/2/图片/	0	ROOT/d/3/图片/	0
