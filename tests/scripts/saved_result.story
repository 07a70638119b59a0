A result is saved with its marks, another one takes its place, and the saved one is opened again.
== files ==
d/a equal text
d/b equal text
x/1 other
x/2 other
letter dear
== script ==
select ROOT/d
call search_check_m_Click
mouse ListView1 double 1 4
answer ROOT/letter
call save_result
answer ROOT/saved
call save_result
select ROOT/x
call search_check_m_Click
answer ROOT/letter
call open_result
answer ROOT/saved
answer yes
call open_result
show ListView1
show selected_dir_count
quit
== output ==
message	检查同内容文件完毕	已　检　查:2 个文件 \r\n相同文件有:1个,占用空间10 字节  用时: 0:0:...	ok	1000
input	保存结果	
message	提示	ROOT/letter\r\n不是保存的结果,没有覆盖。	ok	1000
input	保存结果	ROOT/
message	检查同内容文件完毕	已　检　查:4 个文件 \r\n相同文件有:2个,占用空间15 字节  用时: 0:0:...	ok	1000
input	打开结果	ROOT/
message	提示	ROOT/letter\r\n不是保存的结果,没有打开。	ok	1000
input	打开结果	ROOT/
message	提示	打开的结果将代替现在的结果,连同它的文件清单和目录选择。\r\n继续吗?	yesno	1000
rows	1	list_mode	0	visible	1
1	1	0	10	0	ROOT/d/a	0	ROOT/d/b	255
selected_dir_count	1
== status ==
1
