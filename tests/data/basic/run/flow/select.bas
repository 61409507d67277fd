for i = 0 to 4
  select case i
    case 0: print "zero"
    case 1, 2
      print "one or two"
    case else
      print "more"
      exit for
  end select
next
select case "pear"
  case "apple": print "wrong"
  case "pear", "plum": print "fruit"
end select
x = 7
select case
  case x < 5: print "small"
  case x < 10: print "medium"
  case x < 20: print "wrong"
end select
select case x
  case 1: print "wrong"
end select
print "end"
