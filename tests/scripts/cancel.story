Cancel keeps what was found: the comparison ends at its next look and does all of its closing.
== files ==
d/a1 11
d/a2 11
d/b1 222
d/b2 222
d/c1 3333
d/c2 3333
== script ==
select ROOT/d
call picture2_Click
# 6 for the attributes, 1 before them; each pair then takes a look, the bar, the blocks and the pair itself.
at_yield 12 call Command28_Click
call Picture3_Click
show result_count
show Command28
show Picture3
== output ==
message	检查同内容文件完毕	已　检　查:...	ok	1000
result_count	1
Command28	caption	取消[查相同文件]
Command28	tooltip	
Command28	visible	0
Command28	enabled	1
Picture3	tooltip	
Picture3	visible	1
Picture3	enabled	1
== file 不相同文件.txt ==
ROOT/d/b1
ROOT/d/b2
ROOT/d/c1
ROOT/d/c2
